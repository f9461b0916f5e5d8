#include "changes/RecentSheet.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// What the sheet itself keeps; `row` has its columns.
void showKept(Database& database, ChangeKind kind, const CardVersion& row, ChangeSheet& sheet) {
  sheet.number = row.text("sNum");
  sheet.date = shownDate(row["dTransDate"]);
  sheet.before = rulesOf(kind).stored(database, row.text("sBeforeVoucher"));
  sheet.after = rulesOf(kind).stored(database, row.text("sAfterVoucher"));
  sheet.reason = row.text("memReason");
}

/// The version that the sheet has made shows what it has raised.
void showIncrease(const CardVersion& row, ChangeSheet& sheet) {
  sheet.increase = Format(Val(sheet.after.text) - Val(sheet.before.text), "0.00");
  sheet.residualAfter = Format(row["dblBV"], "0.00");
  sheet.residualBefore = Format(Val(sheet.before.text) * Val(sheet.residualRate) / 100, "0.00");
  sheet.residualIncrease = Format(Val(sheet.residualAfter) - Val(sheet.residualBefore), "0.00");
}

std::optional<ChangeSheet> mostRecentIncrease(Database& database) {
  const auto row = firstVersion(
      database,
      "select a.*,b.sNum,b.sBeforeVoucher,b.sAfterVoucher,b.memReason from fa_cards a,fa_vouchers b"
      " where a.iOptType=1 and b.iVoucherType=1 and a.sVoucherNum=b.sNum order by a.sCardID desc");
  if (!row) return std::nullopt;
  ChangeSheet sheet;
  showCard(*row, sheet);
  originalValueRules().show(database, *row, sheet);
  showKept(database, ChangeKind::OriginalValue, *row, sheet);
  showIncrease(*row, sheet);
  sheet.operatorName = row->text("sOperator");
  return sheet;
}

/// The newest sheet of the type as it is stored.
std::optional<CardVersion> newestSheet(Database& database, int voucherType) {
  Recordset sheets = database.OpenRecordset("Select  * From fa_Vouchers  Order By sNum Desc ");
  if (sheets.Eof()) return std::nullopt;
  sheets.FindFirst(sql("iVoucherType = ", voucherType));
  if (sheets.NoMatch()) return std::nullopt;
  return CardVersion(sheets);
}

}  // namespace

void showCard(const CardVersion& card, ChangeSheet& sheet) {
  sheet.cardNum = card.text("sCardNum");
  sheet.assetNum = card.text("sAssetNum");
  sheet.assetName = card.text("sAssetName");
  sheet.startDate = shownDate(card["dStartdate"]);
  sheet.style = card.text("sStyle");
}

std::optional<ChangeSheet> mostRecentSheet(Database& database, ChangeKind kind, DateTime operatingDate) {
  if (kind == ChangeKind::OriginalValue) return mostRecentIncrease(database);
  if (voucherTypeOf(kind) == 0) return std::nullopt;
  const auto row = newestSheet(database, voucherTypeOf(kind));
  if (!row) return std::nullopt;
  ChangeSheet sheet;
  sheet.cardNum = row->text("sCardNum");
  const SheetRules& rules = rulesOf(kind);
  // The version in force, which a transfer starts from, may be another card's.
  const auto find = kind == ChangeKind::Transfer ? newestVersion : rules.find;
  if (const auto card = find(database, {"sCardNum", sheet.cardNum, operatingDate})) {
    showCard(*card, sheet);
    rules.show(database, *card, sheet);
  }
  showKept(database, kind, *row, sheet);
  sheet.operatorName = row->text("sOperatorVou");
  sheet.siteAfter = row->text("sSiteAfter");
  return sheet;
}

}  // namespace zelkor
