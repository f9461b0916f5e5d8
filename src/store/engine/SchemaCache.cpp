#include "store/engine/SchemaCache.h"

#include "base/Text.h"

namespace zelkor {

const dialect::TableInfo* SchemaCache::table(std::string_view name) const {
  std::string key = asciiLower(name);
  if (const auto known = tables_.find(key); known != tables_.end()) return &known->second;
  std::optional<dialect::TableInfo> info = engine_.tableInfo(name);
  if (!info) return nullptr;
  return &tables_.emplace(std::move(key), std::move(*info)).first->second;
}

}  // namespace zelkor
