#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "base/Currency.h"
#include "base/DateTime.h"

namespace zelkor {

/// The content of a binary column.
struct CarriedBytes {
  std::string_view content;
  friend bool operator==(const CarriedBytes&, const CarriedBytes&) = default;
};

/// A value on its way from one place into another, in the terms of its column's type: Null; a whole number
/// (Short, Long, Counter; Boolean as -1 and 0); a double; a currency; a date; a text in UTF-8; bytes. Views
/// hold until their reader moves on.
using CarriedCell =
    std::variant<std::monostate, std::int64_t, double, Currency, DateTime, std::string_view, CarriedBytes>;

}  // namespace zelkor
