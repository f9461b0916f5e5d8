#include "store/engine/ColumnNames.h"

#include <cstdint>

#include "base/Text.h"

namespace zelkor {

ColumnNames::ColumnNames(std::span<const dialect::OutputColumn> columns) {
  places_.reserve(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) places_.try_emplace(columns[i].name, i);
}

// Fowler-Noll-Vo over the letters without their case.
std::size_t ColumnNames::Hash::operator()(std::string_view name) const {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(asciiLower(c))) * 1099511628211U;
  return hash;
}

std::optional<std::size_t> ColumnNames::find(std::string_view name) const {
  const auto place = places_.find(name);
  return place == places_.end() ? std::nullopt : std::optional(place->second);
}

}  // namespace zelkor
