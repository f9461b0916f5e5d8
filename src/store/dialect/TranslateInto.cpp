#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Types.h"
#include "store/dialect/printing/Emit.h"
#include "store/dialect/TranslateQuery.h"
#include "store/dialect/TranslateStatements.h"

namespace zelkor::dialect {
namespace {

constexpr int kDefaultTextSize = 255;

// A counter stays one only where each of its numbers comes once: in the rows of its own table.
ColumnType storedType(const bound::Node& node, bool singleTable) {
  const ColumnType type = node.type.type;
  if (type == ColumnType::Counter && !singleTable) return ColumnType::Long;
  if (type != ColumnType::Unknown) return type;
  return node.type.family == bound::Family::Number ? ColumnType::Double : ColumnType::Text;
}

std::vector<ColumnInfo> columnsOf(const BoundSelect& bound) {
  const bool singleTable = bound.missing.size() == 1;
  std::vector<ColumnInfo> columns;
  bool counter = false;
  for (const bound::Item& item : bound.select.items) {
    ColumnInfo column{item.name, storedType(item.expr, singleTable && !counter), item.expr.type.size, false};
    counter = counter || column.type == ColumnType::Counter;
    if (column.type == ColumnType::Text && column.size == 0) column.size = kDefaultTextSize;
    for (const ColumnInfo& other : columns)
      if (sameName(other.name, column.name))
        throw RuntimeError(ErrorNumber::DuplicateColumn, "不能多次定义字段 '" + column.name + "'。");
    columns.push_back(std::move(column));
  }
  return columns;
}

}  // namespace

void raiseTableExists(std::string_view table) {
  throw RuntimeError(ErrorNumber::TableAlreadyExists, "表 '" + std::string(table) + "' 已存在。");
}

Translation translateSelectInto(const Select& select, BindContext& context, const EngineWords& engine) {
  const std::string& table = select.into->name;
  BoundSelect bound = bindSelect(context, select, nullptr);
  if (context.schema.table(table)) raiseTableExists(table);
  const std::vector<ColumnInfo> columns = columnsOf(bound);
  bound::Insert fill;
  fill.table = table;
  for (const ColumnInfo& column : columns) fill.columns.push_back(column.name);
  fill.source = storedRows(context, std::move(bound), columns);

  Translation result;
  result.kind = StatementKind::SelectInto;
  result.table = table;
  result.guard = guardQuery(context.numberColumns, engine);
  const auto create = engine.emitter(context.slots);
  create->createTable(table, columns);
  result.sql.push_back(create->take());
  std::ranges::move(engine.describingStatements(table, columns), std::back_inserter(result.sql));
  if (result.guard) result.fastSql = result.sql;
  const auto print = [&](bool fast) {
    const auto emitter = engine.emitter(context.slots, fast);
    emitter->insert(fill);
    return emitter->take();
  };
  result.sql.push_back(print(false));
  if (result.guard) result.fastSql.push_back(print(true));
  result.slots = std::move(context.slots);
  return result;
}

}  // namespace zelkor::dialect
