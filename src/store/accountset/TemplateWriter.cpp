#include "store/accountset/TemplateWriter.h"

#include <stdexcept>

#include "store/catalogue/Revisions.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

void bindCell(EngineStatement& statement, int parameter, ColumnType type,
              const std::optional<std::string>& cell) {
  if (!cell) return statement.bindNull(parameter);
  switch (type) {
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Counter:
      return statement.bindInteger(parameter, std::stoll(*cell));
    case ColumnType::Boolean:
      return statement.bindInteger(parameter, std::stoll(*cell) == 0 ? 0 : -1);
    case ColumnType::Double:
    case ColumnType::Currency:
      return statement.bindReal(parameter, std::stod(*cell));
    default:
      return statement.bindText(parameter, *cell);
  }
}

std::vector<ColumnType> typesOf(const TemplateRows& rows) {
  const TableDef* table = catalogueTable(rows.table);
  if (table == nullptr) throw std::logic_error("template rows: no table " + rows.table);
  std::vector<ColumnType> types;
  for (const std::string& name : rows.columns) {
    const dialect::ColumnInfo* column = table->info.find(name);
    if (column == nullptr) throw std::logic_error("template rows: no column " + rows.table + "." + name);
    types.push_back(column->type);
  }
  return types;
}

}  // namespace

void TemplateWriter::createTables(const std::vector<TableDef>& tables) {
  for (const TableDef& table : tables)
    for (const std::string& statement : createStatements(table, sqliteWords())) file_.run(statement);
  file_.setRevision(currentRevision());
}

void TemplateWriter::insert(const TemplateRows& rows, std::string_view table) {
  const std::vector<ColumnType> types = typesOf(rows);
  SqliteStatement statement = file_.prepareInsert(table.empty() ? rows.table : table, rows.columns);
  for (const auto& row : rows.rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      bindCell(statement, static_cast<int>(i) + 1, types[i], row[i]);
    statement.step();
    statement.reset();
  }
}

void TemplateWriter::run(const std::string& sql, std::span<const std::string> parameters) {
  SqliteStatement statement = file_.prepare(sql);
  int parameter = 0;
  for (const std::string& text : parameters) statement.bindText(++parameter, text);
  statement.step();
}

}  // namespace zelkor
