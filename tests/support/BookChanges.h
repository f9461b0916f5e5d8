#pragma once

#include <algorithm>
#include <map>
#include <ranges>
#include <string>
#include <vector>

#include "store/engine/Recordset.h"
#include "support/Golden.h"

namespace zelkor::test {

/// A row as "column=value" in the order of its columns, Null as "~".
using BookRow = std::vector<std::string>;
/// All rows of all tables but the backups, for the question what an action has written.
using Books = std::map<std::string, std::vector<BookRow>>;

inline Books booksOf(Database& database) {
  Books books;
  for (const std::string& table : database.TableDefs()) {
    if (table.starts_with("zk_") || table.starts_with("ZKFA_BAK")) continue;
    auto& rows = books[table];
    for (Recordset all = database.OpenRecordset(table); !all.Eof(); all.MoveNext()) {
      BookRow& row = rows.emplace_back();
      for (std::size_t i = 0; i < all.FieldCount(); ++i) {
        const Value cell = all.Fields(i);
        row.push_back(all.FieldName(i) + "=" + (cell.isNull() ? "~" : cell.text()));
      }
    }
    std::ranges::sort(rows);
  }
  return books;
}

inline std::size_t differingCells(const BookRow& row, const BookRow& other) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < row.size(); ++i) count += row[i] == other[i] ? 0 : 1;
  return count;
}

/// The cells that are not Null.
inline std::string cellsText(const BookRow& row) {
  std::string text;
  for (const std::string& cell : row) text += cell.ends_with("=~") ? "" : "\n  " + cell;
  return text + "\n";
}

/// Where a row differs from what it was made of, as "column=before > after".
inline std::string differenceText(const BookRow& before, const BookRow& after) {
  std::string text;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (before[i] != after[i]) text += "\n  " + before[i] + " > " + after[i].substr(after[i].find('=') + 1);
  }
  return text + "\n";
}

/// What came, went and changed, table by table, as a person can read it. A row of a wide table, as a card's
/// version is, is told by where it differs from the row that it resembles most.
inline std::string changesText(const Books& before, const Books& after) {
  constexpr std::size_t kWide = 40;
  const auto without = [](const std::vector<BookRow>& rows, const std::vector<BookRow>& others) {
    std::vector<BookRow> left;
    std::ranges::set_difference(rows, others, std::back_inserter(left));
    return left;
  };
  std::string text;
  for (const auto& [table, rows] : after) {
    const auto known = before.find(table);
    const std::vector<BookRow> earlier = known == before.end() ? std::vector<BookRow>() : known->second;
    std::vector<BookRow> went = without(earlier, rows);
    for (const BookRow& row : without(rows, earlier)) {
      const auto resemblance = [&row](const BookRow& other) { return differingCells(row, other); };
      const auto changed = std::ranges::min_element(went, {}, resemblance);
      if (changed != went.end() && resemblance(*changed) <= row.size() / 2) {
        text +=
            table + " changed: " + changed->front() + " " + changed->at(1) + differenceText(*changed, row);
        went.erase(changed);
      } else if (row.size() > kWide && !earlier.empty()) {
        const BookRow& model = *std::ranges::min_element(earlier, {}, resemblance);
        text += table + " added, like " + model.front() + " but for" + differenceText(model, row);
      } else {
        text += table + " added" + cellsText(row);
      }
    }
    for (const BookRow& row : went) text += table + " deleted" + cellsText(row);
  }
  return text;
}

/// Compares what the action writes with the file, named below tests/.
template <typename Action>
void expectWritten(Database& database, const std::string& file, const Action& action) {
  const Books before = booksOf(database);
  action();
  expectGolden(file, changesText(before, booksOf(database)));
}

}  // namespace zelkor::test
