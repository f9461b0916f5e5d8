#include "store/engine/ForeseenRows.h"

#include <utility>

namespace zelkor {

void ForeseenRows::keep(const std::string& sql, Recordset rows, std::uint64_t owner, std::uint64_t writes) {
  rows_.emplace(sql, Kept{std::move(rows), owner, writes});
}

bool ForeseenRows::holds(std::string_view sql, std::uint64_t writes) const {
  const auto found = rows_.find(sql);
  return found != rows_.end() && found->second.writes == writes;
}

void ForeseenRows::forget(std::uint64_t owner) {
  std::erase_if(rows_, [owner](const auto& kept) { return kept.second.owner == owner; });
}

std::optional<Recordset> ForeseenRows::take(std::string_view sql, std::uint64_t writes) {
  if (rows_.empty()) return std::nullopt;
  const auto found = rows_.find(sql);
  if (found == rows_.end()) return std::nullopt;
  const Kept kept = std::move(rows_.extract(found).mapped());
  if (kept.writes != writes) return std::nullopt;
  return kept.rows;
}

}  // namespace zelkor
