#include "store/dialect/StatementRunner.h"

#include "store/dialect/GoldenPrinter.h"
#include "store/engine/Binding.h"
#include "store/engine/SchemaCache.h"

namespace zelkor::dialect::test {
namespace {

std::string rowsFrom(EngineStatement& statement, std::size_t first, std::size_t columns) {
  std::string text;
  while (statement.step()) {
    if (!text.empty()) text += ";";
    for (std::size_t i = first; i < first + columns; ++i) {
      const int column = static_cast<int>(i);
      if (i > first) text += "|";
      text += statement.kind(column) == CellKind::Null ? "~" : std::string(statement.text(column));
    }
  }
  return text;
}

}  // namespace

Translation StatementRunner::translated(std::string_view statement, Shape& shape) {
  const SchemaCache schema(engine());
  shapeOf(statement, shape);
  return translate(statement, shape, schema, EngineKind::Sqlite);
}

long StatementRunner::run(const std::vector<std::string>& sql, const Translation& translation,
                          const Shape& shape) {
  for (const std::string& one : sql) {
    const auto statement = engine().prepare(one);
    bindSlots(*statement, translation.slots, shape.literals);
    while (statement->step()) continue;
  }
  return engine().changes();
}

long StatementRunner::execute(std::string_view statement) {
  Shape shape;
  const Translation translation = translated(statement, shape);
  return run(translation.sql, translation, shape);
}

long StatementRunner::executeFast(std::string_view statement) {
  Shape shape;
  const Translation translation = translated(statement, shape);
  return run(translation.fastSql, translation, shape);
}

std::string StatementRunner::rows(std::string_view query, Query::Form form) {
  Shape shape;
  const Translation translation = translated(query, shape);
  const Query& bound = *translation.query;
  const auto statement = engine().prepare(bound.rows(allColumns(bound), form));
  bindSlots(*statement, translation.slots, shape.literals);
  return rowsFrom(*statement, bound.sources().size() + bound.tieKeys(), bound.columns().size());
}

bool StatementRunner::guarded(std::string_view query) {
  Shape shape;
  return engine().prepare(*translated(query, shape).guard)->step();
}

std::string StatementRunner::raw(std::string_view sql) {
  const auto statement = engine().prepare(sql);
  return rowsFrom(*statement, 0, 1);
}

}  // namespace zelkor::dialect::test
