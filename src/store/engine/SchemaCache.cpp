#include "store/engine/SchemaCache.h"

#include <algorithm>

namespace zelkor {
namespace {

std::string folded(std::string_view name) {
  std::string key(name);
  std::ranges::transform(key, key.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c + ('a' - 'A')) : c; });
  return key;
}

}  // namespace

const dialect::TableInfo* SchemaCache::table(std::string_view name) const {
  std::string key = folded(name);
  if (const auto known = tables_.find(key); known != tables_.end()) return &known->second;
  std::optional<dialect::TableInfo> info = engine_.tableInfo(name);
  if (!info) return nullptr;
  return &tables_.emplace(std::move(key), std::move(*info)).first->second;
}

}  // namespace zelkor
