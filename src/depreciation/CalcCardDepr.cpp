#include "depreciation/CalcCardDepr.h"

#include <array>
#include <exception>
#include <string_view>
#include <vector>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "depreciation/MonthlyDepr.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 12> kMonthColumns = {
    "dblDepr1", "dblDepr2", "dblDepr3", "dblDepr4",  "dblDepr5",  "dblDepr6",
    "dblDepr7", "dblDepr8", "dblDepr9", "dblDepr10", "dblDepr11", "dblDepr12"};

std::string latestVersion(const std::string& cardNum) {
  return sql(
      "select top 1 a.*,b.sName as sBMMC,c.sName as sLBMC from fa_cards a ,fa_Departments b,fa_AssetTypes c "
      "where scardnum='",
      cardNum, "' and a.sDeptNum=b.sNum and a.sTypeNum=c.sNum order by a.sCardID desc");
}

DeprBasis basisOf(const Recordset& card) {
  return {card.Fields("sDeprMethodID"), card.Fields("lLife"), card.Fields("lUsedMonths"),
          card.Fields("dblValue"),      card.Fields("dblBV"), card.Fields("dblBVRate")};
}

std::string monthOfCard(int m, const std::string& cardNum, const MonthlyDepr& depr) {
  return sql("update fa_DeprTransactions set dblDepr", m, "=", Format(depr.amount, "0.00"), ",dblDeprRate", m,
             "=", Format(depr.rate, "0.0000"), ",dblDeprT", m, "=dblMonthDeprTotal +",
             Format(depr.amount, "0.0000"), " where scardnum='", cardNum, "'");
}

std::string ledgerOf(const std::string& cardNum) {
  return sql("select * from fa_DeprTransactions where scardnum='", cardNum, "'");
}

void addYear(const Recordset& ledger, DeprThisYear& deprThisYear) {
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

/// What is written for a card.
struct ComputedCard {
  std::string cardNum;
  std::string month;
  std::string allocation;
};

ComputedCard computed(int m, const std::string& cardNum, const Recordset& card) {
  const MonthlyDepr depr = monthlyDepr(basisOf(card));
  return {cardNum, monthOfCard(m, cardNum, depr), allocationRow(card, depr.amount)};
}

/// Adds what the cards come to, in their order, up to the first whose figures allow no computation.
void compute(RunContext& run, std::span<const std::string> cardNums, std::vector<ComputedCard>& cards) {
  StatementGroup versions(run.dbZKData);
  for (const std::string& cardNum : cardNums) {
    versions.open(latestVersion(cardNum), [&, m = run.period()](const Recordset& card) {
      if (!card.Eof()) cards.push_back(computed(m, cardNum, card));
    });
  }
  versions.run();
}

void write(RunContext& run, std::span<const ComputedCard> cards, DeprThisYear& deprThisYear) {
  StatementGroup group(run.dbZKData);
  for (const ComputedCard& card : cards) {
    group.execute(card.month);
    group.open(ledgerOf(card.cardNum), [&](const Recordset& ledger) { addYear(ledger, deprThisYear); });
    group.execute(card.allocation);
  }
  group.run();
}

}  // namespace

std::int16_t CalcCardDepr(RunContext& run, const std::string& cardNum) {
  std::vector<ComputedCard> cards;
  compute(run, {&cardNum, 1}, cards);
  for (const ComputedCard& card : cards) {
    DeprThisYear deprThisYear(run.dbZKData);
    run.dbZKData.Execute(card.month);
    addYear(run.dbZKData.OpenRecordset(ledgerOf(cardNum)), deprThisYear);
    deprThisYear.write();
    run.dbZKData.Execute(card.allocation);
  }
  return 0;
}

void calcCardsDepr(RunContext& run, std::span<const std::string> cardNums, DeprThisYear& deprThisYear) {
  const auto alone = run.dbZKData.shutOthersOut();
  std::vector<ComputedCard> cards;
  std::exception_ptr failure;
  try {
    compute(run, cardNums, cards);
  } catch (const RuntimeError&) {
    failure = std::current_exception();  // the cards before it are written first
  }
  write(run, cards, deprThisYear);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace zelkor
