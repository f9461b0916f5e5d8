#include <optional>

#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

// Columns
constexpr std::size_t kDigest = 3;
constexpr std::size_t kValueDebit = 4;
constexpr std::size_t kValueBalance = 6;
constexpr std::size_t kDeprCredit = 8;
constexpr std::size_t kDeprBalance = 9;
constexpr std::size_t kNet = 10;

constexpr std::size_t kFirstRow = 2;
constexpr int kValueIncrease = 4;  // the last kind of version that this ledger has a word for

std::string cardQuery(const std::string& department, const std::string& type) {
  std::string condition;
  if (!department.empty() && type.empty()) condition = sql(" where sDeptNum like '", department, "*'");
  if (department.empty() && !type.empty()) condition = sql(" where sTypeNum like '", type, "*'");
  if (!department.empty() && !type.empty()) {
    condition = sql(" where sTypeNum like '", type, "*' and sDeptNum like '", department, "*'");
  }
  return sql(
      "select distinct sCardNum,dblNetValueAct,dblvalue,dInputDate,iOptType,dblTransInDeprTCard from "
      "fa_cards",
      condition, " order by sCardNum");
}

struct Line {
  std::optional<double> valueDebit;
  double valueBalance = 0;
  double deprCredit = 0;
  double deprBalance = 0;
};

void writeLine(ReportGrid& grid, const Recordset& card, const Line& line) {
  const std::size_t row = grid.addRow();
  const int iOptType = kindOf(card);
  grid.put(row, 0, card.TextOrEmpty("dInputDate"));
  grid.put(row, 1, "00001");
  if (iOptType <= kValueIncrease) grid.put(row, kDigest, std::string(digestOf(iOptType)));
  if (line.valueDebit) grid.putNumber(row, kValueDebit, *line.valueDebit);
  grid.putNumber(row, kValueBalance, line.valueBalance);
  grid.putNumber(row, kDeprCredit, line.deprCredit);
  grid.putNumber(row, kDeprBalance, line.deprBalance);
  grid.putNumber(row, kNet, line.valueBalance - line.deprBalance);
}

/// The card as it was entered, what its value has grown by, its depreciation of the first month.
void writeLines(ReportGrid& grid, Database& data, const Recordset& card) {
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

/// Copies of the last line, not sums.
void writeClosing(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  grid.put(total, kDigest, "本期合计");
  for (const std::size_t column : {kValueDebit, kValueBalance, kDeprCredit, kDeprBalance, kNet}) {
    grid.put(total, column, grid.text(total - 1, column));
  }
}

}  // namespace

/// Of all cards that meet the conditions the first alone.
void BuildCardLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "(单个)固定资产明细账";
  setLedgerCaptions(view, conditions);
  ReportGrid grid(view.grid, {1000, 1000, 1000, 1500, 1200, 1200, 1000, 1200, 1200, 1000, 1000}, 4);
  grid.addHeader({"日期", "业务单号", "凭证号", "摘要", "原值", "原值", "原值", "累计折旧", "累计折旧",
                  "累计折旧", "净值"});
  grid.addHeader(
      {"日期", "业务单号", "凭证号", "摘要", "借方", "贷方", "余额", "借方", "贷方", "余额", "净值"});
  const Recordset card =
      run.dbZKData.OpenRecordset(cardQuery(conditions.department.code, conditions.type.code));
  if (card.Eof()) return;
  writeLines(grid, run.dbZKData, card);
  writeClosing(grid);
}

}  // namespace zelkor
