#include "store/engine/ColumnNames.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zelkor {

ColumnNames::ColumnNames(std::span<const dialect::OutputColumn> columns)
    : columns_(columns), next_(columns.size()) {
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

std::optional<std::size_t> ColumnNames::find(std::string_view name) const {
  if (columns_.empty()) return std::nullopt;
  const std::size_t expected = next_[last_];
  if (columns_[expected].name == name) return last_ = expected;
  const auto place = places_.find(name);
  if (place == places_.end()) return std::nullopt;
  next_[last_] = place->second;
  return last_ = place->second;
}

}  // namespace zelkor
