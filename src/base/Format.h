#pragma once

#include <string>
#include <string_view>

#include "base/Value.h"

namespace zelkor {

/// A number or a date under a picture, as the platform's function of that name shows it. Numbers: "0.00",
/// "00000", "#,##0.00", "0.00%" and their like, rounded half away from zero on the decimal text of 15
/// significant digits. Dates: "yyyy-mm-dd", "yyyy.m", "yyyy年mm月dd日 hh时mm分ss秒" and their like, of yyyy
/// and one or two of m, d, h, n, s ("m" after "h" or before "s" is minutes) between characters that are no
/// letters. Null gives the empty text; text that is neither number nor date comes back unchanged; any other
/// picture is error 3251.
std::string Format(const Value& value, std::string_view picture);

}  // namespace zelkor
