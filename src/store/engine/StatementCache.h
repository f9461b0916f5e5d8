#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/dialect/Translation.h"
#include "store/engine/PreparedQuery.h"
#include "store/engine/SchemaCache.h"

namespace zelkor {

/// One shape's translation with what has been prepared of it.
struct CachedStatement {
  dialect::Translation translation;
  std::unique_ptr<EngineStatement> action;  // Insert, Update, Delete
  std::unique_ptr<EngineStatement> fastAction;
  std::unique_ptr<EngineStatement> guard;
  std::shared_ptr<PreparedQuery> query;
};

/// Translations and prepared statements by shape, so that a shape is translated and prepared once.
class StatementCache {
 public:
  StatementCache(Engine& engine, const SchemaCache& schema) : engine_(engine), schema_(schema) {}

  /// The statement of this shape, translated when it is new. The handle outlives a later `forget`.
  std::shared_ptr<CachedStatement> find(std::string_view sql, const dialect::Shape& shape);
  /// After a change of tables: every translation may be wrong now.
  void forget() { statements_.clear(); }

 private:
  struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };
  static constexpr std::size_t mostShapes = 2000;

  std::shared_ptr<CachedStatement> translated(std::string_view sql, const dialect::Shape& shape) const;

  Engine& engine_;
  const SchemaCache& schema_;
  std::unordered_map<std::string, std::shared_ptr<CachedStatement>, KeyHash, std::equal_to<>> statements_;
};

}  // namespace zelkor
