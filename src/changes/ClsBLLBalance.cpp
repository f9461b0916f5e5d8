#include "changes/ClsBLLBalance.h"

#include "base/Conversion.h"
#include "base/Text.h"
#include "changes/BalanceSheet.h"
#include "changes/CardVersion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstCopiedColumn = 2;
constexpr int kVoucherTypeOfMethodChange = 7;
constexpr int kPeriodOfSheet = 5;  // whatever the month

/// A new version of the source: its columns by position, the first two left out.
void copyByPosition(Recordset& cards, const CardVersion& source) {
  for (std::size_t i = kFirstCopiedColumn; i < cards.FieldCount(); ++i) {
    cards.Collect(cards.FieldName(i), source[cards.FieldName(i)]);
  }
}

constexpr const char* kHighestCardID = "select top 1 sCardID from fa_Cards  order by clng(sCardID) desc";

void addSheet(StatementGroup& group, const MethodChange& change) {
  group.add("select * from fa_Vouchers", [&change](Recordset& sheet) {
    sheet.AddNew();
    sheet.Collect("sNum", change.sheetNumber);
    sheet.Collect("sCardNum", change.cardNum);
    sheet.Collect("lOptID", change.operationNumber);
    sheet.Collect("iVoucherType", kVoucherTypeOfMethodChange);
    sheet.Collect("sVoucherName", kBalanceCaption);
    sheet.Collect("sVoucherEngName", kBalanceCaption);
    sheet.Collect("sBeforeVoucher", change.methodBefore);
    sheet.Collect("sAfterVoucher", change.methodAfter);
    sheet.Collect("memReason", change.reason);
    sheet.Collect("dTransdate", change.date);
    sheet.Collect("iTransPeriod", kPeriodOfSheet);
    sheet.Collect("sOperatorVou", change.operatorName);
  });
}

}  // namespace

Recordset ClsBLLBalance::rstGetCards() {
  return query("rstGetCards", "select max(sNum),max(lOptID) from fa_Vouchers");
}

bool ClsBLLBalance::AddCards(const MethodChange& change, MethodLeft left) {
  return attempt("AddCards", false, [&] {
    StatementGroup group(zkData());
    group.runAll([&] {
      addVersion(group, change, left);
      addSheet(group, change);
    });
    return true;
  });
}

void ClsBLLBalance::addVersion(StatementGroup& group, const MethodChange& change, MethodLeft left) {
  const std::string versions = sql("select * from fa_Cards where sCardNum='", change.cardNum, "'");
  group.foresee({kHighestCardID, versions});
  const std::string cardID = sql(CLng(CDbl(group.rowsOf(kHighestCardID).Fields("sCardID")) + 1));
  const CardVersion source(group.rowsOf(versions));
  group.add("select top 1 * from fa_Cards ", [&](Recordset& card) {
    card.AddNew();
    card.Collect("sCardID", cardID);
    card.Collect("sCardNum", change.cardNum);
    copyByPosition(card, source);
    card.Collect("dTransDate", change.date);
    if (left == MethodLeft::Workload) {
      card.Collect("dblPerDepr", 0.0);
      card.Collect("dblTransInDeprTCard", 0.0);
    }
    card.Collect("iTransPeriod", clock_.now().month());
    card.Collect("dblNetValueAct", CDbl(source["dblNetValueAct"]) - CDbl(source["dblTransInDeprTCard"]));
    card.Collect("lDeprMonthsAct", source["lUsedMonths"]);
    card.Collect("sDeprMethodID", change.methodAfter);
  });
}

}  // namespace zelkor
