#include "startup/Strings.h"

#include <algorithm>
#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::size_t kLeastUpperBound = 8;
constexpr std::size_t kLastPosition = std::numeric_limits<std::int16_t>::max();

std::size_t findText(std::string_view text, std::string_view wanted, std::size_t from, bool caseBlind) {
  if (!caseBlind) return text.find(wanted, from);
  const auto same = [](char a, char b) { return asciiLower(a) == asciiLower(b); };
  const auto hit = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                               wanted.end(), same);
  return hit == text.end() ? std::string_view::npos : static_cast<std::size_t>(hit - text.begin());
}

/// Characters as the platform counts them: UTF-16 units.
std::size_t lengthOf(std::string_view utf8) {
  std::size_t units = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) units += byte >= 0xF0U ? 2 : 1;
  }
  return units;
}

void expandParagraph(std::string& text) {
  if (text == "^p") text = "\r\n";
}

}  // namespace

void SplitString(std::string_view text, std::vector<std::string>& array, std::string_view delimiter,
                 bool exact) {
  array.assign(1, std::string());
  std::size_t from = 0;
  while (!delimiter.empty() && from <= text.size()) {
    const auto hit = findText(text, delimiter, from, true);
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

std::string ReplaceString(std::string text, std::string find, std::string replacement, std::int16_t compare) {
  expandParagraph(find);
  expandParagraph(replacement);
  if (find.empty() && replacement.empty()) return text;
  if (lengthOf(text) > kLastPosition) throw RuntimeError(ErrorNumber::Overflow);

  const std::size_t inserted = lengthOf(replacement);
  std::size_t from = 0;
  std::size_t passed = 0;  // characters before `from`
  while (from < text.size()) {
    const auto hit = findText(text, find, from, compare != 0);
    if (hit == std::string::npos) break;
    passed += lengthOf(std::string_view(text).substr(from, hit - from));
    if (passed + inserted >= kLastPosition) throw RuntimeError(ErrorNumber::Overflow);
    text.replace(hit, find.size(), replacement);
    from = hit + replacement.size();
    passed += inserted;
  }
  return text;
}

}  // namespace zelkor
