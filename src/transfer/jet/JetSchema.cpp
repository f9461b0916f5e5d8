#include "transfer/jet/JetSchema.h"

#include <algorithm>
#include <charconv>

#include "transfer/jet/JetConversion.h"
#include "transfer/jet/JetTable.h"
#include "transfer/jet/JetValue.h"

namespace zelkor::jet {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;

/// Whether the engines can take the column for a counter, whose numbers come once each. Jet does not see to
/// that unless an index does.
bool isSoundCounter(JetFile& file, const std::string& table, const Definition& definition,
                    const Column& column) {
  if (column.type != Type::Long) return false;
  for (const Index& index : definition.indexes)
    if (index.unique && index.columns.size() == 1 && index.columns[0].number == column.number &&
        (index.primary || column.counter))
      return true;
  std::vector<std::int32_t> numbers;
  TableWalk walk(file, definition, table);
  while (walk.next()) {
    if (!walk.isSet(column)) return false;
    const std::string_view field = walk.field(column);
    if (field.size() != sizeof(std::int32_t)) return false;
    numbers.push_back(numberAt<std::int32_t>(field, 0));
  }
  std::sort(numbers.begin(), numbers.end());
  return std::adjacent_find(numbers.begin(), numbers.end()) == numbers.end();
}

CarriedCell filling(ColumnType type, const std::string& literal) {
  double number = 0;
  std::from_chars(literal.data(), literal.data() + literal.size(), number);
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Short:
    case ColumnType::Long:
      return static_cast<std::int64_t>(number);
    case ColumnType::Double:
      return number;
    case ColumnType::Currency:
      return Currency::fromDouble(number);
    default:
      return {};
  }
}

class Planner {
 public:
  Planner(JetFile& file, const std::string& name, Definition definition, PlanNews news)
      : file_(file), news_(news), known_(catalogueTable(name)) {
    plan_.definition = std::move(definition);
    plan_.table.info.name = known_ != nullptr ? known_->info.name : name;
    if (known_ != nullptr) plan_.table.defaults = known_->defaults;
  }

  PlannedTable plan() {
    for (std::size_t i = 0; i < plan_.definition.columns.size(); ++i) carryColumn(i);
    if (known_ != nullptr) {
      addMissing();
      plan_.table.indexes = known_->indexes;
    } else {
      for (const Index& index : plan_.definition.indexes) carryIndex(index);
    }
    return std::move(plan_);
  }

 private:
  const std::string& name() const { return plan_.table.info.name; }
  void tell(const std::string& column, const std::string& reason) {
    news_.problems.push_back({name(), 0, column, reason});
  }
  void add(ColumnInfo info, const PlannedColumn& column) {
    plan_.table.info.columns.push_back(std::move(info));
    plan_.columns.push_back(column);
  }
  bool hasCounter() const {
    const auto& columns = plan_.table.info.columns;
    return std::any_of(columns.begin(), columns.end(),
                       [](const ColumnInfo& column) { return column.type == ColumnType::Counter; });
  }

  void carryColumn(std::size_t place);
  ColumnInfo described(const Column& column);
  ColumnType counterType(const Column& column);
  void addMissing();
  void carryIndex(const Index& index);

  JetFile& file_;
  PlanNews news_;
  const TableDef* known_;
  PlannedTable plan_;
};

void Planner::carryColumn(std::size_t place) {
  const Column& column = plan_.definition.columns[place];
  const ColumnType native = nativeType(column);
  if (native == ColumnType::Unknown)
    return tell(column.name,
                "列的类型（" + std::to_string(static_cast<int>(column.type)) + "）不能导入，该列未导入");
  if (plan_.table.info.find(column.name) != nullptr) return tell(column.name, "列名重复，后一列未导入");
  ColumnInfo info = described(column);
  const bool isConverted = !holdsAll(info.type, native);
  add(std::move(info), {place, isConverted, {}, false});
}

ColumnInfo Planner::described(const Column& column) {
  const int size = textSize(column, file_.layout());
  const ColumnInfo* known = known_ == nullptr ? nullptr : known_->info.find(column.name);
  if (known == nullptr) {
    const ColumnType native = nativeType(column);
    return {column.name, column.counter ? counterType(column) : native, size, false};
  }
  ColumnInfo info = *known;
  if (info.type == ColumnType::Text) info.size = std::max(info.size, size);
  if (info.type == ColumnType::Counter) info.type = counterType(column);
  return info;
}

// The catalogue's counter comes before the file's own.
ColumnType Planner::counterType(const Column& column) {
  const ColumnInfo* known = known_ == nullptr ? nullptr : known_->info.find(column.name);
  const bool otherIsKnown =
      known_ != nullptr &&
      std::any_of(known_->info.columns.begin(), known_->info.columns.end(), [&](const ColumnInfo& other) {
        return other.type == ColumnType::Counter && &other != known;
      });
  if (otherIsKnown || hasCounter()) return ColumnType::Long;
  if (isSoundCounter(file_, name(), plan_.definition, column)) return ColumnType::Counter;
  tell(column.name, "编号有重复或空缺，该列不再自动编号");
  return ColumnType::Long;
}

void Planner::addMissing() {
  std::string added;
  for (const ColumnInfo& column : known_->info.columns) {
    if (plan_.table.info.find(column.name) != nullptr) continue;
    const auto value = known_->defaults.find(column.name);
    const std::string literal = value == known_->defaults.end() ? "" : value->second;
    const bool isEmpty = literal.empty() && column.type != ColumnType::Boolean;
    const bool isNumbered = column.type == ColumnType::Counter;
    add(column, {std::nullopt, false, isEmpty ? CarriedCell() : filling(column.type, literal), isNumbered});
    added += (added.empty() ? "" : "、") + column.name;
  }
  if (!added.empty()) news_.notes.push_back("表 " + name() + "：文件里没有的列已按缺省值补上：" + added);
}

void Planner::carryIndex(const Index& index) {
  IndexDef carried{index.name, {}, index.unique, {}, index.ignoresNull};
  for (const IndexColumn& key : index.columns) {
    const Column* column = plan_.definition.columnOf(key.number);
    if (column == nullptr || plan_.table.info.find(column->name) == nullptr)
      return tell("", "索引 " + index.name + " 的列未导入，索引也未建立");
    carried.columns.push_back(column->name);
    if (key.descending) carried.descending.push_back(column->name);
  }
  if (!carried.columns.empty()) plan_.table.indexes.push_back(std::move(carried));
}

}  // namespace

PlannedTable planTable(JetFile& file, const std::string& name, Definition definition, PlanNews news) {
  return Planner(file, name, std::move(definition), news).plan();
}

}  // namespace zelkor::jet
