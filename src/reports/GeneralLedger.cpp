#include "base/Conversion.h"
#include "base/Format.h"
#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column period = add({"期间", 750});
  Column valueDebit = add({"借方", 1200, Right, None, "原值"});
  Column valueCredit = add({"贷方", 1200, Right, None, "原值"});
  Column valueBalance = add({"余额", 1200, Right, None, "原值"});
  Column deprDebit = add({"借方", 1200, Right, None, "累计折旧"});
  Column deprCredit = add({"贷方", 1200, Right, None, "累计折旧"});
  Column deprBalance = add({"余额", 1200, Right, None, "累计折旧"});
  Column netValue = add({"净值", 1200, Right});
};
constexpr Columns kColumns;

std::string sumQuery(const AssetSet& assets) {
  const std::string sums = "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj From fa_DeprTransactions";
  const std::string condition = assetCondition(assets);
  if (condition.empty()) return sums;
  return sql(sums, " where sCardNum in (select distinct sCardNum from fa_cards where ", condition, ")");
}

/// Without a value on one side alone the net value cannot be computed: error 13.
void writeRow(ReportGrid<Columns>& grid, std::size_t row, const std::string& label, const std::string& value,
              const std::string& depreciation) {
  grid.put(row, kColumns.period, label);
  grid.put(row, kColumns.valueDebit, value);
  grid.put(row, kColumns.valueBalance, value);
  grid.put(row, kColumns.deprCredit, depreciation);
  grid.put(row, kColumns.deprBalance, depreciation);
  grid.putNumber(row, kColumns.netValue, CDbl(value) - CDbl(depreciation));
}

}  // namespace

/// The one period shown is the month of the run.
void BuildGeneralLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setLedgerCaptions(view, conditions);
  view.periodCaption.clear();
  ReportGrid grid(view.grid, kColumns);
  const Recordset sums = run.dbZKData.OpenRecordset(sumQuery(chosenAssets(conditions)));
  const Value value = sums.Fields("yz");
  const Value depreciation = sums.Fields("ytzj");
  if (value.isNull() && depreciation.isNull()) return;
  const std::string period =
      sql(run.gdOpDate.year(), ".", Format(static_cast<std::int32_t>(run.gdOpDate.month()), "00"));
  writeRow(grid, grid.addRow(), period, value.textOrEmpty(), depreciation.textOrEmpty());
  writeRow(grid, grid.addTotal(), "合计", value.textOrEmpty(), depreciation.textOrEmpty());
}

}  // namespace zelkor
