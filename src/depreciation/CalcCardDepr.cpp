#include "depreciation/CalcCardDepr.h"

#include <array>
#include <string_view>

#include "base/Conversion.h"
#include "base/Format.h"
#include "depreciation/MonthlyDepr.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 12> kMonthColumns = {
    "dblDepr1", "dblDepr2", "dblDepr3", "dblDepr4",  "dblDepr5",  "dblDepr6",
    "dblDepr7", "dblDepr8", "dblDepr9", "dblDepr10", "dblDepr11", "dblDepr12"};

Recordset openLatestVersion(Database& data, const std::string& cardNum) {
  return data.OpenRecordset(sql(
      "select top 1 a.*,b.sName as sBMMC,c.sName as sLBMC from fa_cards a ,fa_Departments b,fa_AssetTypes c "
      "where scardnum='",
      cardNum, "' and a.sDeptNum=b.sNum and a.sTypeNum=c.sNum order by a.sCardID desc"));
}

DeprBasis basisOf(const Recordset& card) {
  return {card.Fields("sDeprMethodID"), card.Fields("lLife"), card.Fields("lUsedMonths"),
          card.Fields("dblValue"),      card.Fields("dblBV"), card.Fields("dblBVRate")};
}

void writeMonth(RunContext& run, const std::string& cardNum, const MonthlyDepr& depr) {
  const int m = run.period();
  run.dbZKData.Execute(sql("update fa_DeprTransactions set dblDepr", m, "=", Format(depr.amount, "0.00"),
                           ",dblDeprRate", m, "=", Format(depr.rate, "0.0000"), ",dblDeprT", m,
                           "=dblMonthDeprTotal +", Format(depr.amount, "0.0000"), " where scardnum='",
                           cardNum, "'"));
}

void writeYear(Database& data, const std::string& cardNum, DeprThisYear& deprThisYear) {
  const Recordset ledger =
      data.OpenRecordset(sql("select * from fa_DeprTransactions where scardnum='", cardNum, "'"));
  if (ledger.Eof()) return;
  Currency total;
  for (const std::string_view column : kMonthColumns) {
    total = Currency::fromDouble(total.toDouble() + ledger.Fields(column).numberOrZero());
  }
  deprThisYear.set(CCur(Format(total, "0.00")));
}

std::string allocationRow(const Recordset& card, Currency amount) {
  return sql(
      "insert into fa_DeprVouchers "
      "(lOptID,sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,sSubjectName,dblCredit) "
      "values (5,'",
      card.TextOrEmpty("sDeptNum"), "','", card.TextOrEmpty("sBMMC"), "','", card.TextOrEmpty("sTypeNum"),
      "','", card.TextOrEmpty("sLBMC"), "','", card.TextOrEmpty("sDeprSubjectNum"), "','",
      card.TextOrEmpty("sDeprSubjectName"), "',", amount, ")");
}

}  // namespace

std::int16_t CalcCardDepr(RunContext& run, const std::string& cardNum) {
  DeprThisYear deprThisYear(run.dbZKData, DeprThisYear::Writing::AtOnce);
  return CalcCardDepr(run, cardNum, deprThisYear);
}

std::int16_t CalcCardDepr(RunContext& run, const std::string& cardNum, DeprThisYear& deprThisYear) {
  Recordset card = openLatestVersion(run.dbZKData, cardNum);
  if (card.Eof()) return 0;
  const MonthlyDepr depr = monthlyDepr(basisOf(card));
  const std::string allocation = allocationRow(card, depr.amount);
  card.Close();  // before the writes, which an open set would have to make room for
  writeMonth(run, cardNum, depr);
  writeYear(run.dbZKData, cardNum, deprThisYear);
  run.dbZKData.Execute(allocation);
  return 0;
}

}  // namespace zelkor
