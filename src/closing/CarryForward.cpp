#include "closing/CarryForward.h"

#include <string>
#include <vector>

#include "base/LongJob.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// A card version to be carried, as it goes into the statements.
struct CarriedCard {
  std::string sCardNum;
  std::string monthsUsed;  // at the end of the month; nothing when the card holds Null
};

/// Null plus one is Null, which is in a statement as nothing.
std::string oneMore(const Value& number) {
  return number.isNull() ? std::string() : textOfDouble(number.number() + 1);
}

std::string orZero(const Value& number) {
  return number.isNull() ? "0" : number.text();
}

/// Read to the end before anything is written, so that the walk does not have to read on between the writes.
std::vector<CarriedCard> carriedCards(Database& data) {
  std::vector<CarriedCard> cards;
  Recordset rows = data.OpenRecordset("select * from fa_cards where dTransDate is null");
  for (; !rows.Eof(); rows.MoveNext()) {
    cards.push_back({rows.TextOrEmpty("sCardNum"), oneMore(rows.Fields("lUsedMonths"))});
  }
  return cards;
}

/// The ledgers of the account set from month m to the next.
class CarryForward {
 public:
  explicit CarryForward(RunContext& run)
      : data_(run.dbZKData),
        m_(run.period()),
        next_(m_ + 1),
        total_(sql("dblDeprT", m_)),
        value_(sql("dblMonthValue", m_)) {}

  void carry(const CarriedCard& card) {
    carryLedger(card);
    for (const std::string& department : departmentsOf(card.sCardNum)) {
      carryDepartment(card.sCardNum, department);
    }
  }

 private:
  void carryLedger(const CarriedCard& card);
  std::vector<std::string> departmentsOf(const std::string& card);
  void carryDepartment(const std::string& card, const std::string& department);

  Database& data_;
  int m_;
  int next_;
  std::string total_;  // column of the month's accumulated depreciation
  std::string value_;  // column of the month's value
};

void CarryForward::carryLedger(const CarriedCard& card) {
  Recordset ledger =
      data_.OpenRecordset(sql("select * from fa_DeprTransactions where sCardNum='", card.sCardNum, "'"));
  Recordset departments =
      data_.OpenRecordset(sql("select sum(dblDeprT", m_,
                              ") as a from fa_DeprTransactions_Detail where sCardNum='", card.sCardNum, "'"));
  if (ledger.Eof()) return;
  const std::string periodValue = orZero(ledger.Fields("dblPeriodValue"));
  const std::string openingTotal = orZero(departments.Fields("a"));
  const std::string total = ledger.TextOrEmpty(total_);
  ledger.Close();
  departments.Close();
  data_.Execute(sql("update fa_DeprTransactions set dblMonthValue=", periodValue,
                    " ,dblMonthDeprTotal=", openingTotal, ",lDeprMonths", m_, "=", card.monthsUsed,
                    ", lUsedMonths", m_, "=", card.monthsUsed, ",dblDeprT", next_, "=", total, ",lDeprMonths",
                    next_, "=", card.monthsUsed, ",lUsedMonths", next_, "=", card.monthsUsed,
                    " where sCardNum='", card.sCardNum, "'"));
}

std::vector<std::string> CarryForward::departmentsOf(const std::string& card) {
  std::vector<std::string> departments;
  Recordset details = data_.OpenRecordset(
      sql("select * from fa_Cards_Detail where sCardID in (select max(sCardID) from  fa_Cards_Detail where "
          "sCardNum= '",
          card, "')"));
  for (; !details.Eof(); details.MoveNext()) departments.push_back(details.TextOrEmpty("sDeptNum"));
  return departments;
}

void CarryForward::carryDepartment(const std::string& card, const std::string& department) {
  Recordset ledger = data_.OpenRecordset(sql("Select * from fa_DeprTransactions_Detail where sCardNum = '",
                                             card, "' and sDeptNum = '", department, "'"));
  if (ledger.Eof()) return;
  const std::string total = ledger.TextOrEmpty(total_);
  const std::string value = ledger.TextOrEmpty(value_);
  ledger.Close();
  data_.Execute(sql("update fa_DeprTransactions_Detail set dblDeprT", next_, "=", total, ",dblMonthValue",
                    next_, " =", value, "where sCardNum='", card, "' and sDeptNum='", department, "'"));
}

}  // namespace

void carryLedgersForward(RunContext& run) {
  CarryForward forward(run);
  const std::vector<CarriedCard> cards = carriedCards(run.dbZKData);
  LongJob job(run.dialogs, "正在整理卡片数据，请稍候……", cards.size());
  for (const CarriedCard& card : cards) {
    forward.carry(card);
    job.step();
  }
}

void rollTotalsForward(RunContext& run) {
  run.dbZKData.Execute(
      sql("INSERT INTO fa_Total (sDeptNum,sTypeNum,iPeriod,lMonthCount,lCount,dblYearValue,dblYearDeprTotal,"
          "dblLastAccrualValue,dblLastDepr,dblLastAddValue,dblLastDecValue,dblLastWork,dblLastWorkTotal,"
          "dblMonthValue,dblMonthDeprTotal,dblWorkT,dblValue,dblDeprTotal)  "
          "SELECT sDeptNum,sTypeNum,6 As iPeriod,lCount as lMonthCount,lCount,dblYearValue,dblYearDeprTotal,"
          "dblAccrualValue as dblLastAccrualValue,dblDepr as dblLastDepr,dblAddValue as dblLastAddValue,"
          "dblDecValue as dblLastDecValue,dblWork as dblLastWork,dblWorkT as dblLastWorkTotal,"
          "dblValue as dblMonthValue,dblDeprTotal as dblMonthDeprTotal,dblWorkT,dblValue,dblDeprTotal "
          "FROM fa_Total WHERE iPeriod = ",
          run.period()));
}

}  // namespace zelkor
