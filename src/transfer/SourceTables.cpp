#include "transfer/SourceTables.h"

#include <algorithm>

#include "transfer/DefaultLiteral.h"

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::TableInfo;

bool isOneOf(const std::vector<IndexDef>& indexes, const std::string& name) {
  return std::ranges::any_of(indexes,
                             [&](const IndexDef& index) { return dialect::sameName(index.name, name); });
}

bool hasColumns(const TableInfo& table, const IndexDef& index) {
  return std::ranges::all_of(index.columns,
                             [&](const std::string& column) { return table.find(column) != nullptr; });
}

/// The catalogue's definition as far as the source has its columns. A counter that is none in the source has
/// numbers that may come twice.
TableDef knownPart(const TableDef& known, const TableInfo& real) {
  TableDef table = known;
  std::erase_if(table.info.columns,
                [&](const ColumnInfo& column) { return real.find(column.name) == nullptr; });
  for (ColumnInfo& column : table.info.columns)
    if (column.type == ColumnType::Counter) column.type = real.find(column.name)->type;
  std::erase_if(table.indexes, [&](const IndexDef& index) { return !hasColumns(table.info, index); });
  return table;
}

class TableReading {
 public:
  TableReading(Engine& engine, StoredTables& source, std::vector<TransferProblem>& problems)
      : engine_(engine), source_(source), problems_(problems) {}

  std::optional<TableDef> read(const std::string& name) {
    const std::optional<TableInfo> real = engine_.tableInfo(name);
    if (!real || real->columns.empty()) {
      problems_.push_back({name, 0, "", "此表无法读取。"});
      return std::nullopt;
    }
    const TableDef* known = catalogueTable(name);
    TableDef table = known == nullptr ? TableDef{{real->name, {}}, {}, {}} : knownPart(*known, *real);
    addColumns(table, *real);
    for (IndexDef& index : source_.indexes(*real, problems_))
      if (!isOneOf(table.indexes, index.name)) table.indexes.push_back(std::move(index));
    return table;
  }

 private:
  void addColumns(TableDef& table, const TableInfo& real) {
    const auto defaults = source_.defaults(real);
    for (const ColumnInfo& column : real.columns) {
      if (table.info.find(column.name) != nullptr) continue;
      table.info.columns.push_back(carried(real, column));
      if (const auto value = defaults.find(column.name); value != defaults.end())
        addDefault(table, table.info.columns.back(), value->second);
    }
  }

  ColumnInfo carried(const TableInfo& table, ColumnInfo column) {
    if (column.type != ColumnType::Unknown) return column;
    problems_.push_back({table.name, 0, column.name, "列的类型没有对应的类型，按备注文本转移。"});
    column.type = ColumnType::Memo;
    return column;
  }

  void addDefault(TableDef& table, const ColumnInfo& column, const std::string& expression) {
    const auto literal = defaultLiteral(expression, column.type);
    if (literal && !literal->empty()) table.defaults[column.name] = *literal;
    if (!literal)
      problems_.push_back({table.info.name, 0, column.name, "默认值 " + expression + " 不能转移。"});
  }

  Engine& engine_;
  StoredTables& source_;
  std::vector<TransferProblem>& problems_;
};

}  // namespace

std::vector<TableDef> readTables(Engine& engine, StoredTables& source,
                                 std::vector<TransferProblem>& problems) {
  TableReading reading(engine, source, problems);
  std::vector<TableDef> tables;
  for (const std::string& name : engine.tableNames())
    if (auto table = reading.read(name)) tables.push_back(std::move(*table));
  for (TransferProblem& other : source.others()) problems.push_back(std::move(other));
  return tables;
}

}  // namespace zelkor
