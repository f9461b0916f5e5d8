#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/dialect/reading/Shape.h"
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
  std::optional<dialect::ShapeSample> sample;
};

/// Translations and prepared statements by shape, so that a shape is translated and prepared once.
class StatementCache {
 public:
  StatementCache(Engine& engine, const SchemaCache& schema) : engine_(engine), schema_(schema) {}

  /// The statement of the shape of `sql`, translated when it is new, and the literals of `sql`. The handle
  /// outlives a later `forget`. Raises the errors of syntax and of translation.
  std::shared_ptr<CachedStatement> find(std::string_view sql, dialect::Shape& shape);
  /// After a change of tables: every translation may be wrong now.
  void forget();

 private:
  struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };
  static constexpr std::size_t kMostShapes = 2000;
  static constexpr std::size_t kBeginning = 24;  // characters that distinguish most statements
  static constexpr std::size_t kMostAlike = 8;   // samples that begin alike

  std::shared_ptr<CachedStatement> recognised(std::string_view sql, dialect::Shape& shape) const;
  std::shared_ptr<CachedStatement> translated(std::string_view sql, const dialect::Shape& shape) const;
  void keepSample(std::string_view sql, const std::shared_ptr<CachedStatement>& statement);

  Engine& engine_;
  const SchemaCache& schema_;
  std::unordered_map<std::string, std::shared_ptr<CachedStatement>, KeyHash, std::equal_to<>> statements_;
  // By the beginning of the sample, within which no literal stands.
  std::unordered_multimap<std::string_view, std::shared_ptr<CachedStatement>> samples_;
};

}  // namespace zelkor
