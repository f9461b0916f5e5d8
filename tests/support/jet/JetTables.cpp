#include "support/jet/JetTables.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>
#include <vector>

namespace zelkor::test {
namespace {

JetType jetType(const dialect::ColumnInfo& column) {
  switch (column.type) {
    case dialect::ColumnType::Text:
      return JetType::Text;
    case dialect::ColumnType::Memo:
      return JetType::Memo;
    case dialect::ColumnType::Short:
      return JetType::Short;
    case dialect::ColumnType::Long:
    case dialect::ColumnType::Counter:
      return JetType::Long;
    case dialect::ColumnType::Double:
      return JetType::Double;
    case dialect::ColumnType::Currency:
      return JetType::Money;
    case dialect::ColumnType::Date:
      return JetType::Date;
    case dialect::ColumnType::Boolean:
      return JetType::Boolean;
    case dialect::ColumnType::Binary:
      return JetType::Ole;
    case dialect::ColumnType::Unknown:
      break;
  }
  throw std::invalid_argument("a column of no known type: " + column.name);
}

struct Cell {
  JetCell operator()(std::monostate) const { return {}; }
  JetCell operator()(std::int64_t value) const { return value; }
  JetCell operator()(double value) const { return value; }
  JetCell operator()(Currency value) const { return value.scaled(); }
  JetCell operator()(DateTime value) const { return value.toSerial(); }
  JetCell operator()(std::string_view value) const { return std::string(value); }
  JetCell operator()(const CarriedBytes& value) const { return JetBytes{std::string(value.content)}; }
};

JetTable& begin(const TableDef& table, JetFileWriter& file) {
  std::vector<JetColumn> columns;
  for (const dialect::ColumnInfo& column : table.info.columns) columns.push_back(jetColumn(column));
  std::vector<JetIndex> indexes;
  for (const IndexDef& index : table.indexes)
    indexes.push_back({index.name, index.columns, index.unique, false});
  return file.table(table.info.name, std::move(columns), std::move(indexes));
}

}  // namespace

JetColumn jetColumn(const dialect::ColumnInfo& column) {
  JetColumn result{column.name, jetType(column)};
  result.size = column.size;
  result.counter = column.type == dialect::ColumnType::Counter;
  return result;
}

void writeTables(TransferSource& source, JetFileWriter& file) {
  for (const TableDef& table : source.tables()) {
    JetTable& target = begin(table, file);
    const auto rows = source.rows(table);
    std::vector<JetCell> cells(table.info.columns.size());
    while (rows->next()) {
      for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = std::visit(Cell{}, rows->cell(i));
      target.add(cells);
    }
    target.setLastCounter(static_cast<std::int32_t>(source.lastCounter(table)));
  }
}

}  // namespace zelkor::test
