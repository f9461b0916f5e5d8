#include "startup/Strings.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::size_t kLeastUpperBound = 8;

std::size_t findText(std::string_view text, std::string_view wanted, std::size_t from) {
  const auto same = [](char a, char b) { return asciiLower(a) == asciiLower(b); };
  const auto hit = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                               wanted.end(), same);
  return hit == text.end() ? std::string_view::npos : static_cast<std::size_t>(hit - text.begin());
}

}  // namespace

void SplitString(std::string_view text, std::vector<std::string>& array, std::string_view delimiter,
                 bool exact) {
  array.assign(1, std::string());
  std::size_t from = 0;
  while (!delimiter.empty() && from <= text.size()) {
    const auto hit = findText(text, delimiter, from);
    if (hit == std::string_view::npos) break;
    array.emplace_back(Trim(text.substr(from, hit - from)));
    from = hit + delimiter.size();
  }
  array.emplace_back(Trim(text.substr(from)));
  if (!exact) array.resize(std::max(array.size(), kLeastUpperBound + 1));
}

const std::string& element(const std::vector<std::string>& array, std::size_t index) {
  if (index >= array.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return array[index];
}

}  // namespace zelkor
