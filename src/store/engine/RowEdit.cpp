#include "store/engine/RowEdit.h"

#include "base/RuntimeError.h"
#include "store/dialect/printing/Emit.h"
#include "store/engine/ColumnValue.h"
#include "store/engine/Connection.h"

namespace zelkor {
namespace {

using dialect::EngineKind;

std::string quoted(const std::string& name, EngineKind engine) {
  std::string text = "\"";
  for (const char c : name) {
    const bool upper = c >= 'A' && c <= 'Z';
    text += engine == EngineKind::PostgreSql && upper ? static_cast<char>(c + ('a' - 'A')) : c;
    if (c == '"') text += '"';
  }
  return text += '"';
}

std::string keyParameter(std::size_t number, EngineKind engine) {
  const std::string place = std::to_string(number);
  return engine == EngineKind::Sqlite ? "?" + place : "$" + place + "::bigint";
}

std::string rowKey(EngineKind engine) {
  return engine == EngineKind::Sqlite ? "rowid" : "zk_row";
}

}  // namespace

void RowEdit::set(std::size_t column, const dialect::OutputColumn& info, const Value& value) {
  if (!info.source) throw RuntimeError(ErrorNumber::FieldNotUpdatable, "字段 '" + info.name + "' 不能更新。");
  std::optional<Value> converted = convertForColumn(value, info.type);
  if (!converted)
    throw RuntimeError(ErrorNumber::DataTypeConversion, "数据类型转换错误。（字段 '" + info.name + "'）");
  fields_[column] = Field{*info.source, info.sourceColumn, info.type, std::move(*converted)};
}

const Value* RowEdit::find(std::size_t column) const {
  const auto field = fields_.find(column);
  return field == fields_.end() ? nullptr : &field->second.value;
}

std::size_t RowEdit::editedSource() const {
  const std::size_t source = fields_.empty() ? 0 : fields_.begin()->second.source;
  for (const auto& [column, field] : fields_)
    if (field.source != source) throw RuntimeError(ErrorNumber::OperationNotUpdatable);
  return source;
}

std::optional<std::int64_t> RowEdit::write(Connection& connection, const Target& target) const {
  const std::size_t source = editedSource();
  const std::string& table = target.sources[source].table;
  if (newRow_) return insert(connection, table);
  if (!target.keys[source]) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  if (!fields_.empty()) update(connection, table, *target.keys[source]);
  return std::nullopt;
}

std::int64_t RowEdit::insert(Connection& connection, const std::string& table) const {
  const EngineKind engine = connection.engine().kind();
  std::string names;
  std::string places;
  std::size_t number = 0;
  for (const auto& [column, field] : fields_) {
    names += (names.empty() ? "" : ", ") + quoted(field.name, engine);
    places += (places.empty() ? "" : ", ") + dialect::typedParameter(++number, field.type, engine);
  }
  const std::string into = "INSERT INTO " + quoted(table, engine);
  // Without the key among its results the statement would not tell which row it has made.
  const std::string returning = engine == EngineKind::PostgreSql ? " RETURNING " + rowKey(engine) : "";
  EngineStatement& statement = connection.prepared(
      (fields_.empty() ? into + " DEFAULT VALUES" : into + " (" + names + ") VALUES (" + places + ")") +
      returning);
  int place = 0;
  for (const auto& [column, field] : fields_) bindValue(statement, ++place, field.value);
  connection.write(statement);
  return connection.engine().lastRowKey();
}

void RowEdit::update(Connection& connection, const std::string& table, std::int64_t key) const {
  const EngineKind engine = connection.engine().kind();
  std::string assignments;
  std::size_t number = 0;
  for (const auto& [column, field] : fields_)
    assignments += (assignments.empty() ? "" : ", ") + quoted(field.name, engine) + " = " +
                   dialect::typedParameter(++number, field.type, engine);
  EngineStatement& statement =
      connection.prepared("UPDATE " + quoted(table, engine) + " SET " + assignments + " WHERE " +
                          rowKey(engine) + " = " + keyParameter(number + 1, engine));
  int place = 0;
  for (const auto& [column, field] : fields_) bindValue(statement, ++place, field.value);
  statement.bindInteger(++place, key);
  if (connection.write(statement) == 0) throw RuntimeError(ErrorNumber::RecordDeleted);
}

void deleteRow(Connection& connection, const std::string& table, std::int64_t key) {
  const EngineKind engine = connection.engine().kind();
  EngineStatement& statement = connection.prepared("DELETE FROM " + quoted(table, engine) + " WHERE " +
                                                   rowKey(engine) + " = " + keyParameter(1, engine));
  statement.bindInteger(1, key);
  if (connection.write(statement) == 0) throw RuntimeError(ErrorNumber::RecordDeleted);
}

}  // namespace zelkor
