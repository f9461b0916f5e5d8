#include "store/dialect/StatementRunner.h"

#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/Translate.h"
#include "store/engine/Binding.h"
#include "store/engine/ColumnValue.h"
#include "store/engine/SchemaCache.h"

namespace zelkor::dialect::test {
namespace {

std::string rowsFrom(EngineStatement& statement, std::size_t first,
                     const std::vector<OutputColumn>& columns) {
  std::string text;
  while (statement.step()) {
    if (!text.empty()) text += ";";
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Value cell = readCell(statement, static_cast<int>(first + i), columns[i].type);
      text += (i > 0 ? "|" : "") + (cell.isNull() ? "~" : cell.text());
    }
  }
  return text;
}

}  // namespace

Translation StatementRunner::translated(std::string_view statement, Shape& shape) {
  const SchemaCache schema(engine());
  shapeOf(statement, shape);
  return translate(statement, shape, schema, engine().words());
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
  return rowsFrom(*statement, bound.sources().size() + bound.tieKeys(), bound.columns());
}

bool StatementRunner::guarded(std::string_view query) {
  Shape shape;
  return engine().prepare(*translated(query, shape).guard)->step();
}

}  // namespace zelkor::dialect::test
