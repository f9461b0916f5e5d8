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

void StatementCache::forget() {
  samples_.clear();
  statements_.clear();
}

std::shared_ptr<CachedStatement> StatementCache::recognised(std::string_view sql,
                                                            dialect::Shape& shape) const {
  const auto [first, last] = samples_.equal_range(sql.substr(0, kBeginning));
  for (auto known = first; known != last; ++known)
    if (known->second->sample->matches(sql, shape.literals)) return known->second;
  return nullptr;
}

void StatementCache::keepSample(std::string_view sql, const std::shared_ptr<CachedStatement>& statement) {
  const dialect::ShapeSample& sample = statement->sample.emplace(sql);
  const std::string_view begin = sample.statement().substr(0, kBeginning);
  if (sample.firstLiteral() >= kBeginning && samples_.count(begin) < kMostAlike)
    samples_.emplace(begin, statement);
}

std::shared_ptr<CachedStatement> StatementCache::find(std::string_view sql, dialect::Shape& shape) {
  if (auto known = recognised(sql, shape)) return known;
  dialect::shapeOf(sql, shape);
  if (const auto known = statements_.find(std::string_view(shape.key)); known != statements_.end())
    return known->second;
  auto statement = translated(sql, shape);
  const dialect::Translation& translation = statement->translation;
  // True only once, or for these literals only.
  if (changesTables(translation.kind) || translation.dependsOnLiterals) return statement;
  if (statements_.size() >= kMostShapes) forget();
  keepSample(sql, statement);
  return statements_.emplace(shape.key, std::move(statement)).first->second;
}

}  // namespace zelkor
