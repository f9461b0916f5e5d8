#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelkor {

/// The months of a life on a sheet, such as "5年0月". Unlike the card's field, a sheet takes no other text.
/// Errors: 5 without 年 or 月, 13 where a number is missing, 6 beyond
/// 16 bits.
std::int16_t monthsOnSheet(std::string_view text);

/// A life as it was typed, with what is missing in it: "6", "6年" and "6年月" are "6年0月". Nothing stays
/// nothing.
std::string completedLife(std::string_view typed);

}  // namespace zelkor
