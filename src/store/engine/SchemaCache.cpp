#include "store/engine/SchemaCache.h"

#include "base/Text.h"

namespace zelkor {

const dialect::TableInfo* SchemaCache::table(std::string_view name) const {
  std::string key = asciiLower(name);
  auto known = tables_.find(key);
  if (known == tables_.end() && ++read_ == kFewTables) {
    for (dialect::TableInfo& info : engine_.tableInfos()) {
      std::string found = asciiLower(info.name);
      tables_.emplace(std::move(found), Known{std::move(info)});
    }
    known = tables_.find(key);
  }
  if (known == tables_.end()) {
    std::optional<dialect::TableInfo> info = engine_.tableInfo(name);
    if (!info) return nullptr;
    known = tables_.emplace(std::move(key), Known{std::move(*info)}).first;
  }
  ++known->second.asked;
  return &known->second.info;
}

bool SchemaCache::forgetUnlessUsed(std::string_view name) {
  const auto known = tables_.find(asciiLower(name));
  if (known == tables_.end()) return true;
  if (known->second.asked > 1) return false;
  tables_.erase(known);
  return true;
}

}  // namespace zelkor
