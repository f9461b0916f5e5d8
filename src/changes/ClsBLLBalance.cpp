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

std::string nextCardID(Database& database) {
  const Recordset highest =
      database.OpenRecordset("select top 1 sCardID from fa_Cards  order by clng(sCardID) desc");
  return sql(CLng(CDbl(highest.Fields("sCardID")) + 1));
}

}  // namespace

Recordset ClsBLLBalance::rstGetCards() {
  return query("rstGetCards", "select max(sNum),max(lOptID) from fa_Vouchers");
}

bool ClsBLLBalance::AddCards(const MethodChange& change, MethodLeft left) {
  return attempt("AddCards", false, [&] {
    addVersion(change, left);
    addSheet(change);
    return true;
  });
}

void ClsBLLBalance::addVersion(const MethodChange& change, MethodLeft left) {
  const std::string cardID = nextCardID(zkData());
  const Recordset row =
      zkData().OpenRecordset(sql("select * from fa_Cards where sCardNum='", change.cardNum, "'"));
  const CardVersion source(row);
  Recordset cards = zkData().OpenRecordset("select top 1 * from fa_Cards ");
  cards.AddNew();
  cards.Collect("sCardID", cardID);
  cards.Collect("sCardNum", change.cardNum);
  copyByPosition(cards, source);
  cards.Collect("dTransDate", change.date);
  if (left == MethodLeft::Workload) {
    cards.Collect("dblPerDepr", 0.0);
    cards.Collect("dblTransInDeprTCard", 0.0);
  }
  cards.Collect("iTransPeriod", clock_.now().month());
  cards.Collect("dblNetValueAct", CDbl(source["dblNetValueAct"]) - CDbl(source["dblTransInDeprTCard"]));
  cards.Collect("lDeprMonthsAct", source["lUsedMonths"]);
  cards.Collect("sDeprMethodID", change.methodAfter);
  cards.Update();
}

void ClsBLLBalance::addSheet(const MethodChange& change) {
  Recordset sheets = zkData().OpenRecordset("select * from fa_Vouchers");
  sheets.AddNew();
  sheets.Collect("sNum", change.sheetNumber);
  sheets.Collect("sCardNum", change.cardNum);
  sheets.Collect("lOptID", change.operationNumber);
  sheets.Collect("iVoucherType", kVoucherTypeOfMethodChange);
  sheets.Collect("sVoucherName", kBalanceCaption);
  sheets.Collect("sVoucherEngName", kBalanceCaption);
  sheets.Collect("sBeforeVoucher", change.methodBefore);
  sheets.Collect("sAfterVoucher", change.methodAfter);
  sheets.Collect("memReason", change.reason);
  sheets.Collect("dTransdate", change.date);
  sheets.Collect("iTransPeriod", kPeriodOfSheet);
  sheets.Collect("sOperatorVou", change.operatorName);
  sheets.Update();
}

}  // namespace zelkor
