#pragma once

#include <string>
#include <string_view>

#include "base/Value.h"

namespace zelkor {

/// The platform's Format function for number pictures ("0.00", "00000", "#,##0.00", "0.00%", ...) and date
/// pictures ("yyyy-mm-dd", "yyyy-m-d", "yyyy.mm", "yyyy年mm月dd日 hh时mm分ss秒", ...; "m" after "h" or before
/// "s" is minutes). Numbers round half away from zero on the decimal text of 15 significant digits.
/// Null gives the empty text; text that the picture cannot take comes back unchanged.
std::string Format(const Value& value, std::string_view picture);

}  // namespace zelkor
