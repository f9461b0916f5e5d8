#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Value.h"

// The platform's conversion functions. Null is error 94 everywhere; text that is no number is error 13 (the
// empty text included); a result out of range is error 6.
namespace zelkor {

/// Whole number of 16 bits, a tie to the even number.
std::int16_t CInt(const Value& value);
std::int16_t CInt(double value);
/// Whole number of 32 bits, a tie to the even number.
std::int32_t CLng(const Value& value);
std::int32_t CLng(double value);
double CDbl(const Value& value);
/// Fixed point with four decimals, a tie to the even digit.
Currency CCur(const Value& value);
bool CBool(const Value& value);
DateTime CDate(const Value& value);
/// The platform's text of a value: a number with up to 15 significant digits, a date in the general form,
/// "True" and "False".
std::string CStr(const Value& value);
/// Text of a double: up to 15 significant digits, the point, no trailing zeros. A number that needs more than
/// 15 places before or after the point has an exponent: 1E+15, 8.33333333333333E-02.
std::string textOfDouble(double value);

bool IsDate(const Value& value);
bool IsNumeric(const Value& value);

/// The longest number that the text begins with, blanks skipped, the point the only separator; else 0.
double Val(std::string_view text);

/// The whole text read as a number the way CDbl does (blanks around it, sign before or after, parentheses,
/// yuan sign, thousands separators, exponent, &H and &O); nullopt where CDbl would raise error 13. Raises
/// error 6 beyond the range of a double.
std::optional<double> parseNumber(std::string_view text);

/// The platform's division: x / 0 is error 11, 0 / 0 error 6.
double divide(double dividend, double divisor);

/// `value` rounded to whole, a tie to the even number.
double roundHalfEven(double value);

}  // namespace zelkor
