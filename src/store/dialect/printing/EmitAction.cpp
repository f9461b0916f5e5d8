#include <algorithm>

#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {

namespace {

constexpr std::string_view kRowsAlias = "zk_rows";
constexpr std::string_view kKeyName = "zk_key";

std::string valueName(std::size_t index) {
  return "zk_" + std::to_string(index + 1);
}

}  // namespace

void Emitter::insert(const bound::Insert& insert) {
  text("INSERT INTO ").name(insert.table).text(" (");
  bool first = true;
  for (const std::string& column : insert.columns) {
    if (!first) text(", ");
    first = false;
    name(column);
  }
  text(") ");
  if (const auto* rows = std::get_if<bound::Select>(&insert.source)) return select(*rows, false, true);
  text("VALUES (");
  list(std::get<std::vector<bound::Node>>(insert.source));
  text(")");
}

void Emitter::update(const bound::Update& update) {
  if (!update.from.empty()) return joinedUpdate(update);
  text("UPDATE ").name(update.target.name);
  if (!update.target.alias.empty()) text(" AS ").name(update.target.alias);
  std::string_view separator = " SET ";
  for (const bound::Assignment& assignment : update.assignments) {
    text(separator).name(assignment.column).text(" = ");
    value(assignment.value);
    separator = ", ";
  }
  if (update.where) {
    text(" WHERE ");
    value(*update.where);
  }
}

// The joined rows deliver the key of the row to be changed and its new values.
void Emitter::joinedUpdate(const bound::Update& update) {
  text("UPDATE ").name(update.target.name);
  std::string_view separator = " SET ";
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    text(separator)
        .name(update.assignments[i].column)
        .text(" = ")
        .name(kRowsAlias)
        .text(".")
        .name(valueName(i));
    separator = ", ";
  }
  text(" FROM (SELECT ");
  beforeLastMatch(update.target);
  rowKey(update.target.qualifier());
  text(" AS ").name(kKeyName);
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    text(", ");
    value(update.assignments[i].value);
    text(" AS ").name(valueName(i));
  }
  fromClause(update.from);
  if (update.where) {
    text(" WHERE ");
    value(*update.where);
  }
  behindLastMatch(update);
  text(") AS ").name(kRowsAlias).text(" WHERE ");
  rowKey(update.target.name);
  text(" = ").name(kRowsAlias).text(".").name(kKeyName);
}

void Emitter::erase(const bound::Delete& statement) {
  text("DELETE FROM ").name(statement.target.name);
  if (statement.from.empty()) {
    if (!statement.target.alias.empty()) text(" AS ").name(statement.target.alias);
  } else {
    text(" WHERE ");
    rowKey(statement.target.name);
    text(" IN (SELECT ");
    rowKey(statement.target.qualifier());
    fromClause(statement.from);
  }
  if (statement.where) {
    text(" WHERE ");
    value(*statement.where);
  }
  if (!statement.from.empty()) text(")");
}

std::string Emitter::declaredType(const ColumnInfo& column) const {
  return words_.columnType(column) + (column.type == ColumnType::Boolean ? " DEFAULT 0" : "");
}

void Emitter::columnDefinition(const ColumnInfo& column, bool required) {
  name(column.name).text(" ").text(declaredType(column));
  if (required) text(" NOT NULL");
}

void Emitter::createTable(std::string_view table, const std::vector<ColumnInfo>& columns,
                          std::span<const std::string> required) {
  text("CREATE TABLE ").name(table).text(" (");
  bool first = true;
  for (const ColumnInfo& column : columns) {
    if (!first) text(", ");
    first = false;
    columnDefinition(column, std::ranges::any_of(required, [&](const std::string& one) {
                       return sameName(one, column.name);
                     }));
  }
  text(words_.hiddenColumn());
  if (!words_.hiddenColumn().empty()) text(" PRIMARY KEY");
  text(")");
}

}  // namespace zelkor::dialect
