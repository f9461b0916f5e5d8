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
  if (newRow_) return insert(connection, target);
  const std::size_t source = editedSource();
  const std::string& table = target.sources[source].table;
  if (!target.keys[source]) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  if (!fields_.empty()) update(connection, table, *target.keys[source]);
  return std::nullopt;
}

std::unique_ptr<EngineStatement> RowEdit::ahead(Connection& connection, const Target& target) const {
  if (!newRow_) return nullptr;
  auto statement = connection.engine().prepare(insertion(connection, target));
  bindFields(*statement);
  return statement;
}

std::string RowEdit::insertion(Connection& connection, const Target& target) const {
  const dialect::EngineWords& words = connection.engine().words();
  std::string names;
  std::string places;
  std::size_t number = 0;
  for (const auto& [column, field] : fields_) {
    names += (names.empty() ? "" : ", ") + words.quoted(field.name);
    places += (places.empty() ? "" : ", ") + words.typedParameter(++number, field.type);
  }
  const std::string into = "INSERT INTO " + words.quoted(target.sources[editedSource()].table);
  return (fields_.empty() ? into + " DEFAULT VALUES" : into + " (" + names + ") VALUES (" + places + ")") +
         std::string(words.returningRowKey());
}

void RowEdit::bindFields(EngineStatement& statement) const {
  int place = 0;
  for (const auto& [column, field] : fields_) bindValue(statement, ++place, field.value);
}

std::int64_t RowEdit::insert(Connection& connection, const Target& target) const {
  EngineStatement& statement = connection.prepared(insertion(connection, target));
  bindFields(statement);
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
  bindFields(statement);
  statement.bindInteger(static_cast<int>(number + 1), key);
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
