#include <algorithm>

#include "base/Conversion.h"
#include "cards/CardVersions.h"
#include "changes/CardDetailList.h"
#include "changes/SheetRules.h"
#include "changes/TransferRows.h"
#include "store/engine/Statement.h"

// 部门转移: moves the asset to a department or splits it between several. One row is left behind with the
// department before, one is the card from then on.

namespace zelkor {
namespace {

constexpr int kRowLeftBehind = 6;
constexpr int kRowReceiving = 7;

// The sub-select is not grouped: over all cards together it has one number, so that a typed card is found
// only where it holds the highest one.
std::optional<CardVersion> findTyped(Database& database, const CardSearch& search) {
  return firstVersion(
      database, sql(versionsInForceBeginning(search.operatingDate), " ))", " And  fa_Cards.", search.column,
                    "='", search.number, "'", " Order By val(fa_Cards.sCardID) Desc"));
}

// A card can be twice in the list, by versions whose number it has in common with another card's newest.
std::optional<CardVersion> findPicked(Database& database, const CardSearch& search, const ListRow& row) {
  if (auto version = versionInForce(database, search.number, search.operatingDate);
      version && transferListRow(database, *version) == row) {
    return version;
  }
  Recordset versions =
      database.OpenRecordset(sql(versionsInForce(search.operatingDate), " And fa_Cards.sCardNum='",
                                 search.number, "' Order By val(fa_Cards.sCardID) Desc"));
  for (; !versions.Eof(); versions.MoveNext()) {
    CardVersion version(versions);
    if (transferListRow(database, version) == row) return version;
  }
  return std::nullopt;
}

void show(Database& database, const CardVersion& card, ChangeSheet& sheet) {
  const std::string codes = card.text("sDeptNum");
  sheet.before = {departmentNames(database, codes), codes};
  sheet.siteBefore = card.text("sSite");
}

void showPicked(Database& database, const CardVersion& card, const ListRow& /*row*/, ChangeSheet& sheet) {
  show(database, card, sheet);
  sheet.siteBefore = database.OpenRecordset(newestOfCard(sheet.cardNum)).TextOrEmpty("sSite");
}

// The months alone are compared, without their years.
std::optional<MessageBox> checkPick(const ListRow& row, DateTime systemDate) {
  const Value entered(row.at(kTransferEntryDateColumn));
  if (!IsDate(entered) || entered.date().month() != systemDate.month()) return std::nullopt;
  return refusal("当月原始录入或新增的资产不允许做此种变动业务");
}

// The second check looks at the department after and not at the reason, which may stay empty.
std::optional<MessageBox> check(const ChangeSheet& sheet) {
  if (sheet.before.tag == sheet.after.tag) return refusal("变动后内容不应和变动前内容相同！");
  if (sheet.after.text.empty()) return refusal("变动原因不能为空！");
  return std::nullopt;
}

constexpr const char* kHighestCardID = "select max(sCardID) from fa_cards";
constexpr const char* kHighestOperation = "select max(lOptID) from fa_Vouchers";

/// Keys of the two versions. The highest number is that of the text order and is held in 16 bits.
TransferKeys nextKeys(const SheetSaving& saving) {
  const Value highestID = highest(saving, kHighestCardID);
  const std::int16_t cardID = CInt(highestID);
  if (saving.numbers != nullptr) requireDigits(highestID.text());
  const double lOptID = CDbl(saving.card["lOptID"]);
  const TransferKeys keys{.left = {sql(CInt(cardID + 1.0)), CLng(lOptID + 1), kRowLeftBehind},
                          .receiving = {sql(CInt(cardID + 2.0)), CLng(lOptID + 2), kRowReceiving}};
  noteHighest(saving, kHighestCardID, std::max({highestID.text(), keys.left.cardID, keys.receiving.cardID}));
  return keys;
}

void addVersions(const SheetSaving& saving, const TransferKeys& keys) {
  const ChangeSheet& sheet = saving.sheet;
  addVersion(saving, keys.left,
             {{"sDeptNum", sheet.before.tag},
              {"sSite", sheet.siteAfter},
              {"iInputPeriod", 0},
              {"iTransPeriod", saving.systemMonth()},
              {"sTransDepteNum", sheet.after.tag}});
  addVersion(
      saving, keys.receiving,
      {{"sDeptNum", sheet.after.tag}, {"sSite", sheet.siteAfter}, {"sTransDepteNum", sheet.before.tag}});
}

void write(const SheetSaving& saving) {
  const ChangeSheet& sheet = saving.sheet;
  const CarriedRows carried(sheet.cardNum);
  if (saving.numbers == nullptr) foreseeTransfers(saving.group, {&carried, 1});
  const TransferKeys keys = nextKeys(saving);
  const std::int32_t sheetOptID = operationBehind(saving, kHighestOperation);
  addVersions(saving, keys);
  addSheet(saving, ChangeKind::Transfer, sheetOptID, sheet.before.text, sheet.after.text,
           {{"sSiteAfter", sheet.siteAfter}});
  carryShares(saving, carried);
  carryDetails(saving, carried, keys);
}

}  // namespace

std::string newestOfCard(const std::string& cardNum) {
  return sql("select top 1 * from fa_Cards where sCardNum='", cardNum, "' order by val(sCardID) desc");
}

void foreseeTransfers(StatementGroup& group, std::span<const CarriedRows> carried) {
  std::vector<std::string> statements{kHighestCardID, kHighestOperation, CarriedRows::kHighestShare};
  for (const CarriedRows& ofCard : carried)
    statements.insert(statements.end(), {ofCard.lastShare(), ofCard.lastDetail()});
  group.foresee(statements);
  statements.clear();
  for (const CarriedRows& ofCard : carried) ofCard.addFound(group, statements);
  group.foresee(statements);
}

const SheetRules& transferRules() {
  static constexpr PickRules kPick{.check = checkPick, .find = findPicked, .show = showPicked};
  static constexpr SheetRules kRules{.find = findTyped,
                                     .show = show,
                                     .pick = &kPick,
                                     .stored = storedText,
                                     .check = check,
                                     .write = write,
                                     .afterwards = nullptr};
  return kRules;
}

}  // namespace zelkor
