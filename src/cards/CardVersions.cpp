#include "cards/CardVersions.h"

#include "store/engine/Statement.h"

namespace zelkor {

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

}  // namespace zelkor
