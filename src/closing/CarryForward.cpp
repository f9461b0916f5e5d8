#include "closing/CarryForward.h"

#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

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

/// What is written for a version, as far as it has been read.
struct Carried {
  std::string sCardNum;
  std::vector<std::string> statements;
  std::vector<std::string> departments;
};

/// The failure in which the reading ends; what was read before it is written first.
template <typename Read>
std::exception_ptr failureOf(Read read) {
  try {
    read();
    return nullptr;
  } catch (const RuntimeError&) {
    return std::current_exception();
  }
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

  /// Cards whose statements go out together. What is read for one is nothing that is written for another.
  void carry(std::span<const CarriedCard> cards);

 private:
  void readLedgers(std::span<const CarriedCard> cards, std::vector<Carried>& carried);
  void readDepartments(std::vector<Carried>& carried);
  std::string carriedLedger(const CarriedCard& card, const std::string& periodValue,
                            const std::string& openingTotal, const std::string& total) const;
  void carryDepartment(Carried& card, const std::string& department, const Recordset& ledger) const;

  Database& data_;
  int m_;
  int next_;
  std::string total_;  // column of the month's accumulated depreciation
  std::string value_;  // column of the month's value
};

void CarryForward::carry(std::span<const CarriedCard> cards) {
  const auto alone = data_.shutOthersOut();
  std::vector<Carried> carried;
  std::exception_ptr failure = failureOf([&] { readLedgers(cards, carried); });
  if (const auto earlier = failureOf([&] { readDepartments(carried); })) failure = earlier;
  StatementGroup group(data_);
  for (const Carried& card : carried)
    for (const std::string& statement : card.statements) group.execute(statement);
  group.run();
  if (failure) std::rethrow_exception(failure);
}

void CarryForward::readLedgers(std::span<const CarriedCard> cards, std::vector<Carried>& carried) {
  StatementGroup group(data_);
  std::string periodValue;
  std::optional<std::string> total;
  for (const CarriedCard& card : cards) {
    const std::string& num = card.sCardNum;
    group.open(sql("select * from fa_DeprTransactions where sCardNum='", num, "'"),
               [&](const Recordset& ledger) {
                 total.reset();
                 if (ledger.Eof()) return;
                 periodValue = orZero(ledger.Fields("dblPeriodValue"));
                 total = ledger.TextOrEmpty(total_);
               });
    group.open(
        sql("select sum(dblDeprT", m_, ") as a from fa_DeprTransactions_Detail where sCardNum='", num, "'"),
        [&](const Recordset& departments) {
          carried.push_back({num, {}, {}});
          if (total)
            carried.back().statements.push_back(
                carriedLedger(card, periodValue, orZero(departments.Fields("a")), *total));
        });
    group.open(
        sql("select * from fa_Cards_Detail where sCardID in (select max(sCardID) from  fa_Cards_Detail "
            "where sCardNum= '",
            num, "')"),
        [&](Recordset& details) {
          for (; !details.Eof(); details.MoveNext())
            carried.back().departments.push_back(details.TextOrEmpty("sDeptNum"));
        });
  }
  group.run();
}

std::string CarryForward::carriedLedger(const CarriedCard& card, const std::string& periodValue,
                                        const std::string& openingTotal, const std::string& total) const {
  return sql("update fa_DeprTransactions set dblMonthValue=", periodValue,
             " ,dblMonthDeprTotal=", openingTotal, ",lDeprMonths", m_, "=", card.monthsUsed, ", lUsedMonths",
             m_, "=", card.monthsUsed, ",dblDeprT", next_, "=", total, ",lDeprMonths", next_, "=",
             card.monthsUsed, ",lUsedMonths", next_, "=", card.monthsUsed, " where sCardNum='", card.sCardNum,
             "'");
}

void CarryForward::readDepartments(std::vector<Carried>& carried) {
  StatementGroup group(data_);
  std::size_t read = 0;
  std::vector<std::size_t> ofCard;  // for each ledger that is read
  const auto failure = failureOf([&] {
    for (std::size_t i = 0; i < carried.size(); ++i) {
      for (const std::string& department : carried[i].departments) {
        ofCard.push_back(i);
        group.open(sql("Select * from fa_DeprTransactions_Detail where sCardNum = '", carried[i].sCardNum,
                       "' and sDeptNum = '", department, "'"),
                   [&, i](const Recordset& ledger) {
                     carryDepartment(carried[i], department, ledger);
                     ++read;
                   });
      }
    }
    group.run();
  });
  if (!failure) return;
  carried.resize(ofCard[read] + 1);
  std::rethrow_exception(failure);
}

void CarryForward::carryDepartment(Carried& card, const std::string& department,
                                   const Recordset& ledger) const {
  if (ledger.Eof()) return;
  const std::string total = ledger.TextOrEmpty(total_);
  const std::string value = ledger.TextOrEmpty(value_);
  card.statements.push_back(sql("update fa_DeprTransactions_Detail set dblDeprT", next_, "=", total,
                                ",dblMonthValue", next_, " =", value, "where sCardNum='", card.sCardNum,
                                "' and sDeptNum='", department, "'"));
}

}  // namespace

void carryLedgersForward(RunContext& run) {
  CarryForward forward(run);
  const std::vector<CarriedCard> cards = carriedCards(run.dbZKData);
  LongJob job(run.dialogs, "正在整理卡片数据，请稍候……", cards.size());
  forEachGroup(run.dbZKData, cards, [&](std::span<const CarriedCard> group) {
    forward.carry(group);
    for (std::size_t i = 0; i < group.size(); ++i) job.step();
  });
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
