#include "base/RowSearch.h"

#include <algorithm>

#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::string_view kWideBlank = "　";

/// Pieces between blanks, those of a Chinese keyboard among them.
std::vector<std::string> wordsOf(std::string_view sought) {
  std::string text = LCase(sought);
  for (std::size_t at = 0; (at = text.find(kWideBlank, at)) != std::string::npos;) {
    text.replace(at, kWideBlank.size(), " ");
  }
  std::vector<std::string> words = Split(text, ' ');
  std::erase(words, "");
  return words;
}

}  // namespace

void RowSearch::add(std::string_view text) {
  texts_ += LCase(text);
  ends_.push_back(texts_.size());
}

std::string_view RowSearch::textOf(std::size_t row) const {
  const std::size_t begin = row == 0 ? 0 : ends_[row - 1];
  return std::string_view(texts_).substr(begin, ends_[row] - begin);
}

std::vector<std::uint32_t> RowSearch::find(std::string_view sought) const {
  const std::vector<std::string> words = wordsOf(sought);
  std::vector<std::uint32_t> found;
  for (std::size_t row = 0; row < rows(); ++row) {
    const std::string_view text = textOf(row);
    const auto stands = [text](const std::string& word) { return text.find(word) != std::string_view::npos; };
    if (std::ranges::all_of(words, stands)) found.push_back(static_cast<std::uint32_t>(row));
  }
  return found;
}

}  // namespace zelkor
