#include "cards/NewCards.h"

#include <utility>

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {

void NewCards::read(StatementGroup& group, const CardValues& card) {
  const bool isFirst = !std::exchange(haveRead_, true);
  if (isFirst) {
    group.open("Select Top 1 * From FA_Cards Order by clng(sCardID) Desc", [this](const Recordset& newest) {
      if (!newest.Eof()) lastCardID_ = newest.Fields("sCardID");
    });
  }
  const std::string& method = card[CardField::DepreciationMethod];
  if (const auto [place, isNew] = methods_.try_emplace(method); isNew && !method.empty()) {
    group.open(sql("select * from fa_depreciations where sName='", method, "'"),
               [&sID = place->second](const Recordset& row) {
                 if (!row.Eof()) sID = row.Text("sID");
               });
  }
  const std::string& subject = card[CardField::DepreciationSubject];
  if (const auto [place, isNew] = subjects_.try_emplace(subject); isNew) {
    readSubject(group, subject, place->second);
  }
  if (!isFirst) return;
  group.open("select max(lOptID) as a from FA_Cards",
             [this](const Recordset& highest) { lastOptID_ = highest.Fields("a").numberOrZero(); });
}

CardEntry NewCards::entry(CardValues& values, CardLayout layout, int month) const {
  std::string& method = values[CardField::DepreciationMethod];
  method = methods_.at(method).value_or(method);
  return {values, layout, month, subjects_.at(values[CardField::DepreciationSubject])};
}

NewCardKeys NewCards::nextKeys() {
  const std::string cardID = lastCardID_ ? sql(CLng(CLng(*lastCardID_) + 1.0)) : "1";
  const std::int32_t lOptID = CLng(lastOptID_ + 1);
  lastCardID_ = Value(cardID);
  lastOptID_ = lOptID;
  return {cardID, lOptID, type_};
}

void NewCards::write(StatementGroup& group, const CardEntry& card) {
  const NewCardKeys keys = nextKeys();
  insertCard(group, card, keys);
  insertDeptScale(group, card, keys);
  insertCardDetail(group, card, keys);
  insertDeprTransaction(group, card);
  insertDeprTransactionDetail(group, card);
}

}  // namespace zelkor
