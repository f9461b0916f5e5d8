#include <vector>

#include "base/Conversion.h"
#include "base/Text.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column status = add({"使用状况", 2200});
  Column value = add({"金额", 1350, Right, None, "原值"});
  Column valueShare = add({"占总值百分比%", 1350, Right, None, "原值"});
  Column depreciation = add({"金额", 1350, Right, None, "累计折旧"});
  Column depreciationShare = add({"占总值百分比%", 1350, Right, None, "累计折旧"});
  Column netValue = add({"金额", 1350, Right, None, "净值"});
  Column netShare = add({"占总值百分比%", 1350, Right, None, "净值"});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

constexpr std::size_t kTopLevelLength = 1;  // of a status id

struct Amounts {
  double value = 0;
  double depreciation = 0;

  double netValue() const { return value - depreciation; }
  Amounts& operator+=(const Amounts& more) {
    value += more.value;
    depreciation += more.depreciation;
    return *this;
  }
};

struct StatusSum {
  std::string statusID;
  Amounts amounts;
};

std::vector<StatusSum> readSums(Database& data) {
  std::vector<StatusSum> sums;
  Recordset rows = data.OpenRecordset(
      "select sMonthStatusID,sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj"
      " From fa_DeprTransactions"
      " group by sMonthStatusID");
  for (; !rows.Eof(); rows.MoveNext()) {
    sums.push_back({rows.TextOrEmpty("sMonthStatusID"),
                    {rows.Fields("yz").numberOrZero(), rows.Fields("ytzj").numberOrZero()}});
  }
  return sums;
}

/// The status with everything below it.
Amounts sumOfStatus(const std::vector<StatusSum>& sums, const std::string& statusID) {
  Amounts total;
  for (const StatusSum& sum : sums) {
    if (Left(sum.statusID, statusID.size()) == statusID) total += sum.amounts;
  }
  return total;
}

void writeAmounts(Grid& grid, std::size_t row, const Amounts& amounts) {
  grid.putAmount(row, kColumns.value, amounts.value);
  grid.putAmount(row, kColumns.depreciation, amounts.depreciation);
  grid.putAmount(row, kColumns.netValue, amounts.netValue());
}

/// Writes a row for each status that is not empty. Top-level statuses alone feed the totals, as each holds
/// the ones below it.
Amounts writeStatuses(Grid& grid, Database& data) {
  const std::vector<StatusSum> sums = readSums(data);
  Amounts totals;
  if (sums.empty()) return totals;
  Recordset statuses = data.OpenRecordset("select * from fa_status where sID<>'0' order by sID");
  for (; !statuses.Eof(); statuses.MoveNext()) {
    const std::string id = statuses.Text("sID");
    const Amounts sum = sumOfStatus(sums, id);
    const bool topLevel = id.size() == kTopLevelLength;
    if (topLevel) totals += sum;
    if (sum.value == 0 && sum.depreciation == 0) continue;
    const std::size_t row = grid.addRow();
    const std::string indent = topLevel ? "" : "　　";
    grid.put(row, kColumns.status, indent + statuses.TextOrEmpty("sName") + "(" + id + ")");
    writeAmounts(grid, row, sum);
  }
  return totals;
}

/// A total net value of 0 beside a total value that is not is a division by zero.
void writeShares(Grid& grid, const Amounts& totals) {
  if (totals.value == 0) return;
  const auto writeShare = [&grid](std::size_t row, Columns::Column amount, Columns::Column share,
                                  double total) {
    grid.putAmount(row, share, divide(grid.amount(row, amount) * 100, total));
  };
  for (std::size_t row = grid.firstRow(); row < grid.rows(); ++row) {
    writeShare(row, kColumns.value, kColumns.valueShare, totals.value);
    if (totals.depreciation != 0) {
      writeShare(row, kColumns.depreciation, kColumns.depreciationShare, totals.depreciation);
    }
    writeShare(row, kColumns.netValue, kColumns.netShare, totals.netValue());
  }
}

}  // namespace

void BuildStatusAnalysis(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  for (ConditionLine& line : view.conditionLines) line.text.clear();
  Grid grid(view.grid, kColumns);
  const Amounts totals = writeStatuses(grid, run.dbZKData);
  const std::size_t totalRow = grid.addTotal();
  grid.put(totalRow, kColumns.status, "　总　计");
  writeAmounts(grid, totalRow, totals);
  writeShares(grid, totals);
}

}  // namespace zelkor
