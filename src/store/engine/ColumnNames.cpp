#include "store/engine/ColumnNames.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zelkor {

ColumnNames::ColumnNames(std::span<const dialect::OutputColumn> columns) {
  places_.reserve(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) places_.try_emplace(columns[i].name, i);
}

// The first and the last letters, without their case: they distinguish the columns of a table.
std::size_t ColumnNames::Hash::operator()(std::string_view name) const {
  constexpr std::uint64_t kSmallLetters = 0x2020202020202020U;
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;
  if (name.empty()) return 0;
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  const std::size_t length = std::min(name.size(), sizeof first);
  std::memcpy(&first, name.data(), length);
  std::memcpy(&last, name.data() + name.size() - length, length);
  const std::uint64_t letters = (first | kSmallLetters) * kSpread ^ (last | kSmallLetters);
  return (letters + name.size()) * kSpread >> 32U;
}

std::optional<std::size_t> ColumnNames::findUnexpected(std::string_view name) const {
  const auto place = places_.find(name);
  if (place == places_.end()) return std::nullopt;
  expectAfter(name, place->second);
  return place->second;
}

void ColumnNames::expectAfter(std::string_view name, std::size_t column) const {
  auto asked = std::ranges::find(asked_, column, &Asked::column);
  if (asked == asked_.end()) {
    Asked one{{}, static_cast<std::uint16_t>(name.size()), static_cast<std::uint16_t>(column)};
    if (name.size() > one.letters.size() || column != one.column) return;
    name.copy(one.letters.data(), name.size());
    asked = asked_.insert(asked, one);
  }
  next_ = static_cast<std::size_t>(asked - asked_.begin() + 1) % asked_.size();
}

}  // namespace zelkor
