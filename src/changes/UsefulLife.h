#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelkor {

/// A life in months as "5年0月".
std::string lifeText(std::int32_t months);

/// The months of a life such as "5年0月". Errors: 5 without 年 or 月, 13 where a number is missing, 6 beyond
/// 16 bits.
std::int16_t monthsOfLife(std::string_view text);

}  // namespace zelkor
