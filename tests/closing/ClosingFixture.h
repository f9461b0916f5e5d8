#pragma once

#include <map>
#include <string>
#include <vector>

#include "cards/CardFixture.h"
#include "store/engine/Statement.h"

namespace zelkor::test {

using RowByColumn = std::map<std::string, std::string>;

/// A fresh account set in May 2020 into which cards are entered.
class ClosingTest : public CardTest {
 protected:
  void enter(const std::string& cardNum, const std::string& value = "1000") {
    CardValues values = card(cardNum, "021" + cardNum);
    values[CardField::OriginalValue] = value;
    ASSERT_TRUE(cards.SaveNewCard(values, context.period(), NewCardType::Original, CardLayout::Ordinary));
  }

  /// The first row of the query, Null as "~".
  RowByColumn columns(const std::string& query) {
    const Recordset rows = db().OpenRecordset(query);
    RowByColumn row;
    for (std::size_t i = 0; !rows.Eof() && i < rows.FieldCount(); ++i) {
      const Value cell = rows.Fields(i);
      row[rows.FieldName(i)] = cell.isNull() ? "~" : cell.text();
    }
    return row;
  }
  std::string option(const std::string& name) {
    return row(sql("select cValue from AccInformation where cSysID='FA' and cName='", name, "'"));
  }
  std::string count(std::string_view table) { return row(sql("select Count(*) from ", table)); }
};

/// What differs, as "column: before > after".
inline std::vector<std::string> changes(const RowByColumn& before, const RowByColumn& after) {
  std::vector<std::string> lines;
  for (const auto& [column, value] : after) {
    const auto found = before.find(column);
    if (found == before.end() || found->second != value) {
      lines.push_back(sql(column, ": ", found == before.end() ? "none" : found->second, " > ", value));
    }
  }
  return lines;
}

}  // namespace zelkor::test
