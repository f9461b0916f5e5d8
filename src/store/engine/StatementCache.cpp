#include "store/engine/StatementCache.h"

#include "store/dialect/Translate.h"

namespace zelkor {
namespace {

bool changesTables(dialect::StatementKind kind) {
  using dialect::StatementKind;
  switch (kind) {
    case StatementKind::Query:
    case StatementKind::Insert:
    case StatementKind::Update:
    case StatementKind::Delete:
      return false;
    default:
      return true;
  }
}

}  // namespace

std::shared_ptr<CachedStatement> StatementCache::translated(std::string_view sql,
                                                            const dialect::Shape& shape) const {
  auto statement = std::make_shared<CachedStatement>();
  statement->translation = dialect::translate(sql, shape, schema_, engine_.words());
  if (statement->translation.query)
    statement->query = std::make_shared<PreparedQuery>(engine_, statement->translation);
  return statement;
}

std::shared_ptr<CachedStatement> StatementCache::find(std::string_view sql, const dialect::Shape& shape) {
  if (const auto known = statements_.find(std::string_view(shape.key)); known != statements_.end())
    return known->second;
  auto statement = translated(sql, shape);
  const dialect::Translation& translation = statement->translation;
  // True only once, or for these literals only.
  if (changesTables(translation.kind) || translation.dependsOnLiterals) return statement;
  if (statements_.size() >= mostShapes) statements_.clear();
  return statements_.emplace(shape.key, std::move(statement)).first->second;
}

}  // namespace zelkor
