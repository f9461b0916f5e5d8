#include "base/Conversion.h"
#include "base/Format.h"
#include "base/Text.h"
#include "changes/SheetRules.h"
#include "store/engine/Statement.h"

// 原值增加: raises the original value; the residual value follows at the card's rate.

namespace zelkor {
namespace {

std::optional<CardVersion> find(Database& database, const CardSearch& search) {
  return firstVersion(database, sql("select * from fa_cards where ", search.column, "='", search.number,
                                    "'  Order By Val(sCardID) DESC "));
}

std::string rateText(const Value& rate) {
  return textOfDouble(rate.numberOrZero() * 100) + "%";
}

void show(Database& /*database*/, const CardVersion& card, ChangeSheet& sheet) {
  const double exchangeRate = card["dblExchangeRate"].numberOrZero();
  sheet.currency = card.text("sCurrency");
  sheet.exchangeRate = exchangeRate == 0 ? "" : textOfDouble(exchangeRate);
  sheet.residualRate = rateText(card["dblBVRate"]);
  sheet.before.text = Format(card["dblValue"], "0.00");
  sheet.residualBefore = Format(card["dblBV"], "0.00");
  sheet.residualAfter = Format(Val(sheet.residualBefore) + Val(sheet.residualIncrease), "0.00");
  if (!sheet.increase.empty()) sheet.recomputeValues();
}

bool increases(const std::string& typed) {
  return !Trim(typed).empty() && CDbl(Value(typed)) != 0;
}

std::optional<MessageBox> check(const ChangeSheet& sheet) {
  if (!increases(sheet.increase)) return refusal("未增加原值！");
  if (sheet.reason.empty()) return refusal("变动原因不能为空！");
  return std::nullopt;
}

void write(const SheetSaving& saving) {
  constexpr const char* kHighestOperation = "select max(lOptID) from fa_vouchers";
  const ChangeSheet& sheet = saving.sheet;
  saving.group.foresee({kHighestOperation, kLastOfRegister});
  addVersion(saving, keysBehind(saving.card, 1),
             {{"dblValue", sheet.after.text}, {"dblBV", sheet.residualAfter}});
  const std::int32_t sheetOptID = operationBehind(saving, kHighestOperation);
  addSheet(saving, ChangeKind::OriginalValue, sheetOptID, sheet.before.text, sheet.after.text);
  addRegisterRow(saving);
}

}  // namespace

const SheetRules& originalValueRules() {
  static constexpr SheetRules kRules{.find = find,
                                     .show = show,
                                     .pick = nullptr,
                                     .stored = storedText,
                                     .check = check,
                                     .write = write,
                                     .afterwards = nullptr};
  return kRules;
}

}  // namespace zelkor
