#include "base/Conversion.h"
#include "changes/CardDetailList.h"
#include "changes/SheetRules.h"
#include "store/engine/Statement.h"

// 累计折旧调整: corrects what has been depreciated so far. The figure lives in the ledgers and not on the
// card, whose new version differs in nothing but what every sheet sets.

namespace zelkor {
namespace {

/// The version of the card's newest sheet of this kind, if its operation number joins; the sheet's columns
/// come after those of the card.
std::optional<CardVersion> findBySheet(Database& database, const CardSearch& search) {
  return firstVersion(
      database,
      sql("select a.* ,fa_Vouchers.sBeforeVoucher,fa_Vouchers.sAfterVoucher, fa_Vouchers.iVoucherType"
          " from  fa_cards a,fa_Vouchers  Where  a.sCardNum=fa_Vouchers.sCardNum "
          " And  a.lOptID=fa_Vouchers.lOptID And  fa_Vouchers.iVoucherType=5 And  a.",
          search.column, "='", search.number, "'  Order By Val(a.sCardID) DESC "));
}

std::optional<CardVersion> find(Database& database, const CardSearch& search) {
  if (auto changed = findBySheet(database, search)) return changed;
  return newestDepreciated(database, search);
}

void show(Database& /*database*/, const CardVersion& card, ChangeSheet& sheet) {
  const Value* after = card.find("sAfterVoucher");
  sheet.before.text = (after ? *after : card["dblTransInDeprTCard"]).textOrEmpty();
}

std::optional<CardVersion> findPicked(Database& database, const CardSearch& search, const ListRow& /*row*/) {
  return find(database, search);
}

// The list has a row for each sheet of a card: the one that was chosen gives the value before.
void showPicked(Database& /*database*/, const CardVersion& /*card*/, const ListRow& row, ChangeSheet& sheet) {
  sheet.before.text = row.at(kListedValueColumn);
}

std::optional<MessageBox> check(const ChangeSheet& sheet) {
  if (sheet.reason.empty()) return refusal("变动原因不能为空", "保存:累计折旧调整");
  return std::nullopt;
}

double amountAfter(const ChangeSheet& sheet) {
  return CDbl(Value(sheet.after.text));
}
double amountBefore(const ChangeSheet& sheet) {
  return CDbl(Value(sheet.before.text));
}

// The sheet is kept when the ledgers cannot be corrected: a text that is no number must not get that far.
void requireAmounts(const ChangeSheet& sheet) {
  amountBefore(sheet);
  amountAfter(sheet);
}

void write(const SheetSaving& saving) {
  const ChangeSheet& sheet = saving.sheet;
  requireAmounts(sheet);
  saving.group.foresee({kHighestVersion});
  const VersionKeys keys = keysBehindAll(saving, 11);
  addVersion(saving, keys, {});
  addSheet(saving, ChangeKind::AccumulatedDepr, keys.lOptID, sheet.before.text, sheet.after.text);
}

void correctLedgers(const SheetSaving& saving) {
  const ChangeSheet& sheet = saving.sheet;
  saving.group.execute(sql("Update fa_Deprtransactions Set dblDeprT", saving.systemMonth(), "=",
                           amountAfter(sheet), " Where sCardNum='", sheet.cardNum, "'"));
  saving.group.execute(sql("Update fa_Total Set dblDeprTotal=dblDeprTotal +",
                           amountAfter(sheet) - amountBefore(sheet), " Where sDeptNum='",
                           saving.card.text("sDeptNum"), "' And sTypeNum='", saving.card.text("sTypeNum"),
                           "'"));
}

}  // namespace

const SheetRules& accumulatedDeprRules() {
  static constexpr PickRules kPick{.check = nullptr, .find = findPicked, .show = showPicked};
  static constexpr SheetRules kRules{.find = find,
                                     .show = show,
                                     .pick = &kPick,
                                     .stored = storedText,
                                     .check = check,
                                     .write = write,
                                     .afterwards = correctLedgers};
  return kRules;
}

}  // namespace zelkor
