#pragma once

#include <cstddef>
#include <cstdint>

#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

/// How a literal becomes the value of a parameter.
enum class BindAs : std::uint8_t {
  Text,         // the text as it is written
  TrimmedText,  // without blanks at its end: the other side of =, <> or a member of IN
  Number,       // an integer when it is written without point and exponent and fits 64 bits, else a double
  Date,         // the store's ISO text of a #...# literal
  PrefixLow,    // a LIKE pattern "abc*": abc
  PrefixHigh,   // the least text above every text that begins with abc
  Pattern,      // a LIKE pattern as it is written
  Assigned,     // stored into a column: converted to `target` as the engine converts, Null when it cannot be
};

/// Parameter i of the translated text (counting from 1) is slots[i - 1].
struct ParameterSlot {
  std::size_t literal = 0;
  BindAs bindAs{};
  ColumnType target = ColumnType::Unknown;  // for Assigned
};

}  // namespace zelkor::dialect
