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

constexpr const char* kDetails = "select * from fa_cards_detail";

Value scaled(const Value& figure, double scale) {
  return figure.isNull() ? Value() : Value(CDbl(figure) * scale / kWholeAsset);
}

void addReceiver(const SheetSaving& saving, const VersionKeys& keys, const Receiver& receiver) {
  const CardVersion& card = saving.card;
  ColumnValues values{{"sCardID", keys.cardID},
                      {"lOptID", keys.lOptID},
                      {"sCardNum", saving.sheet.cardNum},
                      {"sDeptNum", receiver.department},
                      {"dDisposeDate", card["dDisposeDate"]},
                      {"iDisposePeriod", card["iDisposePeriod"]}};
  for (const char* column : kScaledFigures) values.emplace_back(column, scaled(card[column], receiver.scale));
  for (const char* column : kWholeFigures) values.emplace_back(column, card[column]);
  addRow(saving.group, kDetails, values);
}

}  // namespace

// The details of the card's last operation stand again under the keys of the row left behind.
void carryDetails(const SheetSaving& saving, const CarriedRows& carried, const TransferKeys& keys) {
  for (const CardVersion& detail : carried.details(saving.group))
    addCopy(saving.group, kDetails, detail, {"sID"},
            {{"lOptID", keys.left.lOptID}, {"sCardID", keys.left.cardID}});
  for (const Receiver& receiver : receivers(saving.sheet)) addReceiver(saving, keys.receiving, receiver);
}

}  // namespace zelkor
