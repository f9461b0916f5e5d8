#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

/// Splits `text` into `array`, whose elements start at index 1 (index 0 stays empty). Every field is trimmed
/// of blanks; the rest after the last delimiter counts as a field, also when it is empty. The delimiter is
/// found without regard to case.
///
/// With `exact` the upper bound is the number of fields; without it the upper bound is at least 8.
void SplitString(std::string_view text, std::vector<std::string>& array, std::string_view delimiter,
                 bool exact);

/// Element of an array filled by SplitString; error 9 outside its bounds.
const std::string& element(const std::vector<std::string>& array, std::size_t index);

}  // namespace zelkor
