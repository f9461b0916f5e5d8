#include "store/engine/JobLock.h"

#include <algorithm>

namespace zelkor {
namespace {

constexpr std::size_t kDigits = 14;
constexpr std::size_t kHead = 2 + kDigits + 1;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// "2020-01-31 09:30:00" of "20200131093000".
std::string dateText(std::string_view digits) {
  std::string text(digits);
  for (const auto& [place, mark] : {std::pair(12, ':'), {10, ':'}, {8, ' '}, {6, '-'}, {4, '-'}})
    text.insert(text.begin() + place, mark);
  return text;
}

}  // namespace

std::string textOfNote(const JobNote& note) {
  std::string text{note.kind, ' '};
  std::ranges::copy_if(note.since.toIso(), std::back_inserter(text), isDigit);
  return text + ' ' + note.user;
}

std::optional<JobNote> noteOfText(std::string_view text) {
  if (text.size() < kHead) return std::nullopt;
  const std::string_view digits = text.substr(2, kDigits);
  if (!std::ranges::all_of(digits, isDigit)) return std::nullopt;
  const auto since = parseDate(dateText(digits));
  if (!since) return std::nullopt;
  return JobNote{.kind = text[0], .since = *since, .user = std::string(text.substr(kHead))};
}

}  // namespace zelkor
