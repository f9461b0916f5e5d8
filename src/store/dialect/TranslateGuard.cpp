#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/TranslateQuery.h"

namespace zelkor::dialect {

std::optional<std::string> guardQuery(const std::vector<NumberColumn>& columns, const EngineWords& engine) {
  if (columns.empty()) return std::nullopt;
  std::string guard;
  for (const NumberColumn& column : columns)
    guard += (guard.empty() ? "" : " UNION ALL ") + engine.oddNumbers(column);
  return guard + " LIMIT 1";
}

}  // namespace zelkor::dialect
