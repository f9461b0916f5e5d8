#include "transfer/Transfer.h"

namespace zelkor {
namespace {

/// Counts the rows that another reader gives.
class CountedRows final : public RowReader {
 public:
  explicit CountedRows(RowReader& rows) : rows_(rows) {}
  bool next() override {
    if (!rows_.next()) return false;
    ++count_;
    return true;
  }
  CarriedCell cell(std::size_t column) override { return rows_.cell(column); }
  std::int64_t count() const { return count_; }

 private:
  RowReader& rows_;
  std::int64_t count_ = 0;
};

bool hasCounter(const TableDef& table) {
  for (const dialect::ColumnInfo& column : table.info.columns)
    if (column.type == dialect::ColumnType::Counter) return true;
  return false;
}

CarriedTable carryRows(TransferSource& source, TransferTarget& target, const TableDef& table) {
  const auto reader = source.rows(table);
  CountedRows rows(*reader);
  const std::int64_t stored = target.load(table, rows);
  return {table.info.name, rows.count(), stored};
}

void carryTable(TransferSource& source, TransferTarget& target, const TableDef& table,
                TransferReport& report) {
  report.tables.push_back(carryRows(source, target, table));
  if (hasCounter(table)) target.continueCounter(table, source.lastCounter(table));
  for (const IndexDef& index : table.indexes)
    if (const auto reason = target.createIndex(table, index))
      report.problems.push_back({table.info.name, 0, "", "索引 " + index.name + " 不能建立：" + *reason});
  target.completeTable(table);
}

void append(std::vector<TransferProblem>& problems, const std::vector<TransferProblem>& more) {
  problems.insert(problems.end(), more.begin(), more.end());
}

}  // namespace

TransferReport carryTables(TransferSource& source, TransferTarget& target) {
  TransferReport report;
  for (const TableDef& table : source.tables()) carryTable(source, target, table, report);
  target.setBooksRevision(source.booksRevision());
  append(report.problems, source.problems());
  append(report.problems, target.problems());
  return report;
}

}  // namespace zelkor
