#include "changes/SheetRules.h"

#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {

const SheetRules& rulesOf(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::OriginalValue:
      return originalValueRules();
    case ChangeKind::UsageStatus:
      return usageStatusRules();
    case ChangeKind::AccumulatedDepr:
      return accumulatedDeprRules();
    case ChangeKind::UsefulLife:
      return usefulLifeRules();
    case ChangeKind::ResidualValue:
      return residualValueRules();
    case ChangeKind::Transfer:
      break;
  }
  return transferRules();
}

std::optional<CardVersion> firstVersion(Database& database, std::string_view statement) {
  const Recordset rows = database.OpenRecordset(statement);
  if (rows.Eof()) return std::nullopt;
  return CardVersion(rows);
}

std::optional<CardVersion> newestVersion(Database& database, const CardSearch& search) {
  return firstVersion(database, sql("Select top 1 * From fa_cards Where ", search.column, "='", search.number,
                                    "' Order By Val(sCardID) DESC "));
}

std::optional<CardVersion> newestDepreciated(Database& database, const CardSearch& search) {
  return firstVersion(
      database, sql("select *  from  fa_cards a   Where a.sCardID in ( Select  Top 1 sCardID From fa_cards"
                    " Where fa_cards.sCardNum = a.sCardNum And  fa_cards.dblTransInDeprTCard<>0"
                    " Order By sCardID Desc) And  a.",
                    search.column, "='", search.number, "'"));
}

ShownValue storedText(Database& /*database*/, const std::string& kept) {
  return {kept, ""};
}

std::string shownDate(const Value& date) {
  return Format(date, "yyyy-mm-dd");
}

}  // namespace zelkor
