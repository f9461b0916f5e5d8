#include "cards/CardVersions.h"

#include <optional>

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kTransferredOut = 6;
constexpr int kNeverCurrent = 8;

/// The versions that count by `date`, each card's newest first.
std::string versionsByCard(DateTime date, std::string_view condition) {
  const std::string day = dayText(date);
  return sql("Select sCardNum,iOptType,dDisposeDate From fa_Cards Where dInputDate<=#", day,
             "# And (dTransDate<=#", day, "# Or dTransDate Is Null) And (dDisposeDate<=#", day,
             "# Or dDisposeDate Is Null)", condition, " Order By sCardNum,val(sCardID) Desc");
}

bool holdsItsCard(const Recordset& newest) {
  const Value type = newest.Fields("iOptType");
  return newest.Fields("dDisposeDate").isNull() && !type.isNull() && type.number() != kTransferredOut &&
         type.number() != kNeverCurrent;
}

}  // namespace

std::string versionsInForceBeginning(DateTime date) {
  const std::string day = dayText(date);
  return sql(
      "SELECT * FROM fa_Cards  Where (fa_Cards.dDisposeDate Is null) "
      "And fa_Cards.iOptType<>8 And fa_Cards.iOptType<>6  "
      "AND fa_Cards.sCardID IN (SELECT Max(sCardID) From fa_Cards WHERE (((fa_Cards.dInputDate)<=#",
      day, "#) AND ((fa_Cards.dTransDate)<=#", day, "# Or (fa_Cards.dTransDate) Is Null) ",
      "AND ((fa_Cards.dDisposeDate)<=#", day, "# Or (fa_Cards.dDisposeDate) Is Null) ");
}

std::string versionsInForce(DateTime date) {
  return versionsInForceBeginning(date) + ") GROUP BY fa_Cards.sCardNum)";
}

std::set<std::string> cardsInForce(Database& database, DateTime date) {
  std::set<std::string> cards;
  std::optional<std::string> last;
  for (Recordset versions = database.OpenRecordset(versionsByCard(date, "")); !versions.Eof();
       versions.MoveNext()) {
    std::string card = versions.TextOrEmpty("sCardNum");
    if (last == card) continue;
    if (holdsItsCard(versions)) cards.insert(card);
    last = std::move(card);
  }
  return cards;
}

bool isCardInForce(Database& database, std::string_view cardNum, DateTime date) {
  return areInForce(database.OpenRecordset(versionsOfCard(cardNum, date)));
}

std::string versionsOfCard(std::string_view cardNum, DateTime date) {
  return versionsByCard(date, sql(" And sCardNum='", cardNum, "'"));
}

bool areInForce(const Recordset& versionsOfCard) {
  return !versionsOfCard.Eof() && holdsItsCard(versionsOfCard);
}

}  // namespace zelkor
