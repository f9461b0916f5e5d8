#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// What the numbers of a cell's format are.
struct NumberStyle {
  enum class Kind : std::uint8_t { Plain, Date, Padded };

  Kind kind = Kind::Plain;
  std::size_t digits = 0;  // of a padded number: 5 for the format 00000
};

/// The style that a number format of a workbook stands for: by its code, or by its number where the workbook
/// has no code for it.
NumberStyle styleOfFormat(std::string_view code);
NumberStyle styleOfFormat(int number);

/// A number as a workbook stores it, as a person would type it: with at most 15 digits, a date as yyyy-mm-dd
/// with the time where it has one, a padded number with its zeros. What is no number comes as it is.
std::string numberText(std::string_view stored, NumberStyle style, bool from1904);

/// The text with what a workbook writes as _x000A_ for characters.
std::string unescaped(std::string text);

/// The index of a cell's column: 0 for "A7", 27 for "AB1"; nothing for what is no cell.
std::optional<std::size_t> columnOfCell(std::string_view cell);

}  // namespace zelkor
