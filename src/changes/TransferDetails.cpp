#include "base/Conversion.h"
#include "base/Text.h"
#include "changes/TransferRows.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kScaledFigures[] = {
    "dblValue",     "dblBV",     "dblCanWork", "dblTransInDeprTCard", "dblTransOutDeprTCard",
    "dblBuildArea", "lBuildNum", "lMachinNum", "dblMachinW"};
constexpr const char* kWholeFigures[] = {"dblDecDeprT", "dblDecPreValueT", "dblRetDecPreValueT"};
constexpr double kWholeAsset = 100;

struct Receiver {
  std::string department;
  double scale = kWholeAsset;  // percent
};

std::vector<Receiver> receivers(const ChangeSheet& sheet) {
  const auto departments = Split(sheet.after.tag, '/');
  if (departments.size() < 2) return {{sheet.after.tag, kWholeAsset}};
  const auto scales = Split(withoutLastSlash(sheet.split.scales), '/');
  std::vector<Receiver> found;
  for (std::size_t i = 0; i < departments.size(); ++i) {
    const std::string scale = i < scales.size() ? scales[i] : "";
    found.push_back({departments[i], CDbl(Value(scale))});
  }
  return found;
}

/// The details of the card's last operation stand again under the keys of the row left behind.
void copyEarlier(const SheetSaving& saving, const VersionKeys& keys) {
  const std::string& card = saving.sheet.cardNum;
  const Recordset last = saving.database.OpenRecordset(
      sql("select max(lOptID) as ch from fa_cards_detail where sCardNum='", card, "'"));
  if (last.Fields("ch").isNull()) return;
  Recordset rows = saving.database.OpenRecordset(sql(
      "select * from fa_cards_detail where lOptID =", CLng(last.Fields("ch")), " and sCardNum='", card, "'"));
  std::vector<CardVersion> details;
  for (; !rows.Eof(); rows.MoveNext()) details.emplace_back(rows);
  for (const CardVersion& detail : details) {
    addCopy(rows, detail, {"sID"}, {{"lOptID", keys.lOptID}, {"sCardID", keys.cardID}});
  }
}

Value scaled(const Value& figure, double scale) {
  return figure.isNull() ? Value() : Value(CDbl(figure) * scale / kWholeAsset);
}

void addReceiver(const SheetSaving& saving, const VersionKeys& keys, const Receiver& receiver) {
  const CardVersion& card = saving.card;
  Recordset details = saving.database.OpenRecordset("select * from fa_cards_detail");
  details.AddNew();
  details.Collect("sCardID", keys.cardID);
  details.Collect("lOptID", keys.lOptID);
  details.Collect("sCardNum", saving.sheet.cardNum);
  details.Collect("sDeptNum", receiver.department);
  details.Collect("dDisposeDate", card["dDisposeDate"]);
  details.Collect("iDisposePeriod", card["iDisposePeriod"]);
  for (const char* column : kScaledFigures) details.Collect(column, scaled(card[column], receiver.scale));
  for (const char* column : kWholeFigures) details.Collect(column, card[column]);
  details.Update();
}

}  // namespace

void carryDetails(const SheetSaving& saving, const TransferKeys& keys) {
  copyEarlier(saving, keys.left);
  for (const Receiver& receiver : receivers(saving.sheet)) addReceiver(saving, keys.receiving, receiver);
}

}  // namespace zelkor
