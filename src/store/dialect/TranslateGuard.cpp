#include "store/dialect/printing/Emit.h"
#include "store/dialect/TranslateQuery.h"

namespace zelkor::dialect {
namespace {

std::string columnText(const NumberColumn& column) {
  const auto emitter = emitterFor(EngineKind::Sqlite, {});
  emitter->name(column.column);
  return emitter->take();
}

std::string selectOdd(const NumberColumn& column, const std::string& condition) {
  const auto emitter = emitterFor(EngineKind::Sqlite, {});
  emitter->text("SELECT 1 FROM ").name(column.table).text(" WHERE ").text(condition);
  return emitter->take();
}

// The condition of the helper index "zk_odd_...", word for word: only then does the engine use that index.
std::string oddTexts(const NumberColumn& column) {
  const std::string name = columnText(column);
  return selectOdd(column, name + " IS NULL OR " + name + " = '' OR " + name + " GLOB '*[^0-9]*' OR CAST(" +
                               name + " AS INTEGER) > 999999999");
}

// A 16-bit number overflows sooner; asked apart, so that the index "zk_number_..." answers.
std::string beyondShort(const NumberColumn& column) {
  return selectOdd(column, "CAST(" + columnText(column) + " AS INTEGER) > 32767");
}

std::string serverText(const NumberColumn& column, const char* condition) {
  const auto emitter = emitterFor(EngineKind::PostgreSql, {});
  emitter->text("SELECT 1 FROM ").name(column.table).text(" WHERE zk_digits(").name(column.column);
  emitter->text(")").text(condition);
  return emitter->take();
}

}  // namespace

std::optional<std::string> guardQuery(const std::vector<NumberColumn>& columns, EngineKind engine) {
  if (columns.empty()) return std::nullopt;
  const bool sqlite = engine == EngineKind::Sqlite;
  std::string guard;
  for (const NumberColumn& column : columns) {
    if (!guard.empty()) guard += " UNION ALL ";
    guard += sqlite ? oddTexts(column) : serverText(column, " IS NULL");
    if (column.asShort)
      guard += " UNION ALL " + (sqlite ? beyondShort(column) : serverText(column, " > 32767"));
  }
  return guard + " LIMIT 1";
}

}  // namespace zelkor::dialect
