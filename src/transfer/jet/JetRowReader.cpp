#include "transfer/jet/JetRowReader.h"

#include <algorithm>

#include "store/dialect/binding/ColumnTypes.h"
#include "transfer/jet/JetConversion.h"

namespace zelkor::jet {

using dialect::ColumnType;

JetRowReader::JetRowReader(JetFile& file, const PlannedTable& plan, TextDecoder& texts, Problems& problems)
    : file_(file),
      plan_(plan),
      problems_(problems),
      told_(problems.of(plan.table.info.name)),
      walk_(file, plan.definition, plan.table.info.name),
      values_(texts),
      buffers_(plan.columns.size()),
      cells_(plan.columns.size()) {}

bool JetRowReader::next() {
  if (!walk_.next()) {
    finish();
    return false;
  }
  for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i] = carried(i);
  told_.rows = std::max(told_.rows, walk_.row());
  return true;
}

CarriedCell JetRowReader::carried(std::size_t column) {
  const PlannedColumn& planned = plan_.columns[column];
  if (!planned.source) return planned.isNumbered ? CarriedCell(walk_.row()) : planned.filling;
  const CarriedCell value = values_.read(walk_, plan_.definition.columns[*planned.source], buffers_[column]);
  if (!values_.complaint().empty()) tell(column, values_.complaint());
  return planned.isConverted ? fitted(value, column) : value;
}

CarriedCell JetRowReader::fitted(const CarriedCell& value, std::size_t column) {
  const ColumnType type = plan_.table.info.columns[column].type;
  if (auto cell = converted(value, type, buffers_[column])) return *cell;
  const auto stored = [&](const char* word, CarriedCell cell) {
    tell(column, "值不合" + dialect::typeName(type) + "列，存为" + word + "：" + shownText(value));
    return cell;
  };
  if (type != ColumnType::Boolean) return stored("空值", {});
  return isNumberBeyondZero(value) ? stored("“是”", std::int64_t{-1}) : stored("“否”", std::int64_t{0});
}

void JetRowReader::tell(std::size_t column, std::string reason) {
  if (walk_.row() <= told_.rows) return;
  const auto& info = plan_.table.info;
  problems_.addValue(told_, {info.name, walk_.row(), info.columns[column].name, std::move(reason)});
}

void JetRowReader::finish() {
  file_.requireUnchanged();
  const auto problem = walk_.countProblem();
  if (!problem || told_.isCountTold) return;
  told_.isCountTold = true;
  problems_.all().push_back({plan_.table.info.name, 0, "", *problem});
}

}  // namespace zelkor::jet
