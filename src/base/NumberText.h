#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/Decimal.h"

// Numbers and their texts, below the conversion functions.
namespace zelkor {

/// A number as CDbl and CCur read it from a whole text; nullopt where the text is none.
struct ParsedNumber {
  Numeral numeral;
  std::string_view digits;  // where the numeral stands
};
std::optional<ParsedNumber> parseNumeral(std::string_view text);

/// Plain digits of a decimal with the point where it belongs, never an exponent; no trailing zeros after the
/// point.
std::string plainText(const Decimal& value);

}  // namespace zelkor
