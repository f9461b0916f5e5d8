#include <vector>

#include "base/Conversion.h"
#include "base/Text.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 2;
constexpr std::size_t kTopLevelLength = 1;  // of a status id

struct StatusSum {
  std::string statusID;
  double value = 0;
  double depreciation = 0;
};

struct Totals {
  double value = 0;
  double depreciation = 0;

  void add(double moreValue, double moreDepreciation) {
    value += moreValue;
    depreciation += moreDepreciation;
  }
};

std::vector<StatusSum> readSums(Database& data) {
  std::vector<StatusSum> sums;
  Recordset rows = data.OpenRecordset(
      "select sMonthStatusID,sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj"
      " From fa_DeprTransactions"
      " group by sMonthStatusID");
  for (; !rows.Eof(); rows.MoveNext()) {
    sums.push_back({rows.TextOrEmpty("sMonthStatusID"), rows.Fields("yz").numberOrZero(),
                    rows.Fields("ytzj").numberOrZero()});
  }
  return sums;
}

/// The status with everything below it.
Totals sumOfStatus(const std::vector<StatusSum>& sums, const std::string& statusID) {
  Totals total;
  for (const StatusSum& sum : sums) {
    if (Left(sum.statusID, statusID.size()) == statusID) total.add(sum.value, sum.depreciation);
  }
  return total;
}

void writeAmounts(ReportGrid& grid, std::size_t row, const Totals& amounts) {
  grid.putAmount(row, 1, amounts.value);
  grid.putAmount(row, 3, amounts.depreciation);
  grid.putAmount(row, 5, amounts.value - amounts.depreciation);
}

/// Writes a row for each status that is not empty. Top-level statuses alone feed the totals, as each holds
/// the ones below it.
Totals writeStatuses(Database& data, ReportGrid& grid) {
  const std::vector<StatusSum> sums = readSums(data);
  Totals totals;
  if (sums.empty()) return totals;
  Recordset statuses = data.OpenRecordset("select * from fa_status where sID<>'0' order by sID");
  for (; !statuses.Eof(); statuses.MoveNext()) {
    const std::string id = statuses.Text("sID");
    const Totals sum = sumOfStatus(sums, id);
    const bool topLevel = id.size() == kTopLevelLength;
    if (topLevel) totals.add(sum.value, sum.depreciation);
    if (sum.value == 0 && sum.depreciation == 0) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, 0, (topLevel ? "" : "　　") + statuses.TextOrEmpty("sName") + "(" + id + ")");
    writeAmounts(grid, row, sum);
  }
  return totals;
}

/// A total net value of 0 beside a total value that is not is a division by zero.
void writeShares(ReportGrid& grid, const Totals& totals) {
  for (std::size_t row = kFirstRow; row < grid.rows(); ++row) {
    if (totals.value == 0) continue;
    grid.putAmount(row, 2, grid.amount(row, 1) * 100 / totals.value);
    if (totals.depreciation != 0) grid.putAmount(row, 4, grid.amount(row, 3) * 100 / totals.depreciation);
    grid.putAmount(row, 6, divide(grid.amount(row, 5) * 100, totals.value - totals.depreciation));
  }
}

}  // namespace

void BuildStatusAnalysis(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  view.title = "固定资产使用状况分析表";
  for (ConditionLine& line : view.conditionLines) line.text.clear();
  ReportGrid grid(view.grid, {2200, 1350, 1350, 1350, 1350, 1350, 1350}, 1);
  grid.addHeader({"使用状况", "原值", "原值", "累计折旧", "累计折旧", "净值", "净值"});
  grid.addHeader({"使用状况", "金额", "占总值百分比%", "金额", "占总值百分比%", "金额", "占总值百分比%"});
  const Totals totals = writeStatuses(run.dbZKData, grid);
  const std::size_t totalRow = grid.addRow();
  grid.put(totalRow, 0, "　总　计");
  writeAmounts(grid, totalRow, totals);
  writeShares(grid, totals);
}

}  // namespace zelkor
