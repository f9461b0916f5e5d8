#include "year/BookDump.h"

#include "store/engine/Statement.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

std::string textOf(const Recordset& row, std::string_view column) {
  const Value cell = row.Fields(column);
  return cell.isNull() ? "~" : cell.text();
}

/// Columns of one row, "name=value".
std::string named(const Recordset& row, std::initializer_list<const char*> columns) {
  std::string text = " ";
  for (const char* column : columns) text += sql(" ", column, "=", textOf(row, column));
  return text + "\n";
}

/// A column per month.
std::string series(const Recordset& row, const char* name, int first, int last) {
  std::string text = sql("  ", name, " ", first, "..", last, ":");
  for (int n = first; n <= last; ++n) text += sql(" ", textOf(row, sql(name, n)));
  return text + "\n";
}

std::string ledgerText(const Recordset& row) {
  return textOf(row, "sCardNum") + " " + textOf(row, "sDeprAssetNum") + "\n" +
         named(row, {"iInputPeriod", "dblInputValue", "dblInputDeprTotal", "dblInputBV", "dblInputBVRate",
                     "lInputLife", "lInputDeprMonths"}) +
         named(row, {"dblMonthValue", "dblMonthDeprTotal", "dblMonthBV", "dblMonthBVRate", "sMonthStatusID",
                     "dblPeriodValue", "dblPeriodDeprTotal", "dblDeprThisYear"}) +
         series(row, "dblDepr", 1, 12) + series(row, "dblDeprRate", 0, 12) + series(row, "dblDeprT", 1, 13) +
         series(row, "dblMonthValue", 0, 12) + series(row, "lDeprMonths", 1, 13) +
         series(row, "lUsedMonths", 1, 13);
}

std::string departmentLedgerText(const Recordset& row) {
  return textOf(row, "sCardNum") + " in " + textOf(row, "sDeptNum") +
         ": dblDeprThisYear=" + textOf(row, "dblDeprThisYear") + "\n" + series(row, "dblDepr", 1, 12) +
         series(row, "dblDeprT", 1, 13) + series(row, "dblMonthValue", 1, 13);
}

}  // namespace

std::string ledgersText(YearBooks& books) {
  std::string text = "\n# fa_DeprTransactions\n";
  Recordset cards = books.db().OpenRecordset("select * from fa_DeprTransactions order by sCardNum");
  for (; !cards.Eof(); cards.MoveNext()) text += ledgerText(cards);
  text += "\n# fa_DeprTransactions_Detail\n";
  Recordset departments =
      books.db().OpenRecordset("select * from fa_DeprTransactions_Detail order by sCardNum,sDeptNum");
  for (; !departments.Eof(); departments.MoveNext()) text += departmentLedgerText(departments);
  return text;
}

std::string workloadsText(YearBooks& books) {
  std::string text = "\n# fa_WorkLoad\n";
  Recordset rows = books.db().OpenRecordset("select * from fa_WorkLoad order by sCardNum");
  for (; !rows.Eof(); rows.MoveNext()) {
    text +=
        textOf(rows, "sCardNum") + "\n" + series(rows, "dblWork", 1, 12) + series(rows, "dblWorkT", 1, 12);
  }
  return text;
}

std::string tablesText(YearBooks& books, const std::string& part, int month) {
  std::string text;
  for (const auto& table : casesIn("year/tables.txt")) {
    if (table[0] != part) continue;
    std::string rest = table[3];
    if (const auto at = rest.find("{month}"); at != std::string::npos) rest.replace(at, 7, sql(month));
    text += "\n# " + table[1] + "\n" + table[2] + "\n";
    for (const std::string& row : books.rows(sql("select ", table[2], " ", rest))) text += row + "\n";
  }
  return text;
}

}  // namespace zelkor::test
