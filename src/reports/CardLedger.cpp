#include <optional>

#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

// The closing row repeats the last line: nothing is summed.
struct Columns : ReportColumns<Columns> {
  Column date = add({"日期", 1000});
  Column documentNumber = add({"业务单号", 1000});
  Column voucherNumber = add({"凭证号", 1000});
  Column digest = add({"摘要", 1500});
  Column valueDebit = add({"借方", 1200, Right, Last, "原值"});
  Column valueCredit = add({"贷方", 1200, Right, None, "原值"});
  Column valueBalance = add({"余额", 1000, Right, Last, "原值"});
  Column deprDebit = add({"借方", 1200, Right, None, "累计折旧"});
  Column deprCredit = add({"贷方", 1200, Right, Last, "累计折旧"});
  Column deprBalance = add({"余额", 1000, Right, Last, "累计折旧"});
  Column netValue = add({"净值", 1000, Right, Last});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

constexpr int kValueIncrease = 4;  // the last kind of version that this ledger has a word for

std::string cardQuery(const AssetSet& assets) {
  const std::string condition = assetCondition(assets);
  return sql(
      "select distinct sCardNum,dblNetValueAct,dblvalue,dInputDate,iOptType,dblTransInDeprTCard from "
      "fa_cards",
      condition.empty() ? "" : " where ", condition, " order by sCardNum");
}

struct Line {
  std::optional<double> valueDebit;
  double valueBalance = 0;
  double deprCredit = 0;
  double deprBalance = 0;
};

void writeLine(Grid& grid, const Recordset& card, const Line& line) {
  const std::size_t row = grid.addRow();
  const int iOptType = kindOf(card);
  grid.put(row, kColumns.date, card.TextOrEmpty("dInputDate"));
  grid.put(row, kColumns.documentNumber, "00001");
  if (iOptType <= kValueIncrease) grid.put(row, kColumns.digest, std::string(digestOf(iOptType)));
  if (line.valueDebit) grid.putNumber(row, kColumns.valueDebit, *line.valueDebit);
  grid.putNumber(row, kColumns.valueBalance, line.valueBalance);
  grid.putNumber(row, kColumns.deprCredit, line.deprCredit);
  grid.putNumber(row, kColumns.deprBalance, line.deprBalance);
  grid.putNumber(row, kColumns.netValue, line.valueBalance - line.deprBalance);
}

/// The card as it was entered, what its value has grown by, its depreciation of the first month.
void writeLines(Grid& grid, Database& data, const Recordset& card) {
  const double entered = card.Fields("dblNetValueAct").number();
  const double value = card.Fields("dblvalue").number();
  const double broughtIn = card.Fields("dblTransInDeprTCard").number();
  writeLine(grid, card, {entered, entered, broughtIn, broughtIn});
  if (value - entered > 0) writeLine(grid, card, {value - entered, value, broughtIn, broughtIn});
  const Recordset ledger = data.OpenRecordset(
      sql("select dblDepr1,dblDeprT1 from fa_DeprTransactions where sCardNum='", card.Text("sCardNum"), "'"));
  if (ledger.Eof() || ledger.Fields("dblDepr1").numberOrZero() <= 0) return;
  writeLine(grid, card, {{}, value, ledger.Fields("dblDepr1").number(), ledger.Fields("dblDeprT1").number()});
}

/// The asset as the card's last version has it.
std::string assetOf(Database& data, const std::string& card) {
  const Recordset last =
      data.OpenRecordset(sql("select top 1 sAssetNum,sAssetName from fa_cards where sCardNum='", card,
                             "' order by val(sCardID) desc"));
  return "固定资产：" + last.TextOrEmpty("sAssetNum") + " " + last.TextOrEmpty("sAssetName");
}

}  // namespace

/// Of all cards that meet the conditions the first alone.
void BuildCardLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setLedgerCaptions(view, conditions);
  Grid grid(view.grid, kColumns);
  const Recordset card = run.dbZKData.OpenRecordset(cardQuery(chosenAssets(conditions)));
  if (card.Eof()) return;
  view.subject = assetOf(run.dbZKData, card.Text("sCardNum"));
  writeLines(grid, run.dbZKData, card);
  grid.addTotalRow(kColumns.digest, "本期合计");
}

}  // namespace zelkor
