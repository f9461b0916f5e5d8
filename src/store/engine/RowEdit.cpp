#include "store/engine/RowEdit.h"

#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/ColumnConversion.h"
#include "store/engine/ColumnValue.h"
#include "store/engine/Connection.h"

namespace zelkor {
void RowEdit::set(std::size_t column, const dialect::OutputColumn& info, const Value& value) {
  if (!info.source) throw RuntimeError(ErrorNumber::FieldNotUpdatable, "字段 '" + info.name + "' 不能更新。");
  std::optional<Value> converted = dialect::convertForColumn(value, info.type);
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
  const dialect::EngineWords& words = connection.engine().words();
  std::string names;
  std::string places;
  std::size_t number = 0;
  for (const auto& [column, field] : fields_) {
    names += (names.empty() ? "" : ", ") + words.quoted(field.name);
    places += (places.empty() ? "" : ", ") + words.typedParameter(++number, field.type);
  }
  const std::string into = "INSERT INTO " + words.quoted(table);
  EngineStatement& statement = connection.prepared(
      (fields_.empty() ? into + " DEFAULT VALUES" : into + " (" + names + ") VALUES (" + places + ")") +
      std::string(words.returningRowKey()));
  int place = 0;
  for (const auto& [column, field] : fields_) bindValue(statement, ++place, field.value);
  connection.write(statement);
  return connection.engine().lastRowKey();
}

void RowEdit::update(Connection& connection, const std::string& table, std::int64_t key) const {
  const dialect::EngineWords& words = connection.engine().words();
  std::string assignments;
  std::size_t number = 0;
  for (const auto& [column, field] : fields_)
    assignments += (assignments.empty() ? "" : ", ") + words.quoted(field.name) + " = " +
                   words.typedParameter(++number, field.type);
  EngineStatement& statement =
      connection.prepared("UPDATE " + words.quoted(table) + " SET " + assignments + " WHERE " +
                          std::string(words.rowKey()) + " = " + words.rowKeyParameter(number + 1));
  int place = 0;
  for (const auto& [column, field] : fields_) bindValue(statement, ++place, field.value);
  statement.bindInteger(++place, key);
  if (connection.write(statement) == 0) throw RuntimeError(ErrorNumber::RecordDeleted);
}

void deleteRow(Connection& connection, const std::string& table, std::int64_t key) {
  const dialect::EngineWords& words = connection.engine().words();
  EngineStatement& statement =
      connection.prepared("DELETE FROM " + words.quoted(table) + " WHERE " + std::string(words.rowKey()) +
                          " = " + words.rowKeyParameter(1));
  statement.bindInteger(1, key);
  if (connection.write(statement) == 0) throw RuntimeError(ErrorNumber::RecordDeleted);
}

}  // namespace zelkor
