#include "depreciation/BookFigures.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstMonthColumn = 2;  // of the ledger's query

/// The entries of an archive's first level with what has been added for each.
class FirstLevel {
 public:
  FirstLevel(Database& data, std::string_view table) {
    Recordset rows = data.OpenRecordset(
        sql("select sNum,sName from ", table, " where iLevel=1 and sNum<>'&' order by sNum"));
    for (; !rows.Eof(); rows.MoveNext())
      entries_.push_back({rows.TextOrEmpty("sNum"), rows.TextOrEmpty("sName"), 0});
  }

  void add(std::string_view code, double amount) {
    const auto entry = std::ranges::find_if(
        entries_, [code](const NamedAmount& one) { return !one.code.empty() && code.starts_with(one.code); });
    (entry == entries_.end() ? rest_ : entry->amount) += amount;
  }

  /// Those with an amount, the largest first.
  std::vector<NamedAmount> amounts() {
    if (rest_ != 0) entries_.push_back({"", "其他", rest_});
    std::erase_if(entries_, [](const NamedAmount& one) { return one.amount == 0; });
    std::ranges::stable_sort(entries_, std::ranges::greater(), &NamedAmount::amount);
    return std::move(entries_);
  }

 private:
  std::vector<NamedAmount> entries_;
  double rest_ = 0;
};

/// The accumulated depreciation that a sheet gave a card, and the first month that comes on top of it.
struct Correction {
  double accumulated = 0;
  int firstMonth = 1;
};

std::unordered_map<std::string, Correction> corrections(Books& books) {
  constexpr int kAccumulatedDepr = 5;
  std::unordered_map<std::string, Correction> found;
  Recordset rows = books.data.OpenRecordset(
      sql("select sCardNum,sAfterVoucher,dTransDate from fa_Vouchers where iVoucherType=", kAccumulatedDepr,
          " order by sNum"));
  for (; !rows.Eof(); rows.MoveNext()) {
    const Value day = rows.Fields("dTransDate");
    if (day.isNull() || day.date() > books.date) continue;
    const bool thisYear = day.date().year() == books.year();
    found[rows.TextOrEmpty("sCardNum")] = {Val(rows.TextOrEmpty("sAfterVoucher")),
                                           thisYear ? day.date().month() + 1 : 1};
  }
  return found;
}

std::string ledgerQuery(int months) {
  std::string query = "select sCardNum,dblInputDeprTotal";
  for (int month = 1; month <= months; ++month) query += sql(",dblDepr", month);
  return query + " from fa_DeprTransactions";
}

class Ledger {
 public:
  Ledger(Books& books, const CardTally& cards)
      : books_(books),
        cards_(cards),
        corrections_(corrections(books)),
        departments_(books.data, "fa_Departments"),
        categories_(books.data, "fa_AssetTypes") {}

  BookFigures figures() {
    addCards();
    Recordset rows = books_.data.OpenRecordset(ledgerQuery(books_.month()));
    rows.keepStreaming();
    for (; !rows.Eof(); rows.MoveNext()) take(rows);
    figures_.depreciation = figures_.depreciationByMonth.at(monthIndex()).value_or(0);
    figures_.depreciationByDepartment = departments_.amounts();
    figures_.netValueByCategory = categories_.amounts();
    return std::move(figures_);
  }

 private:
  std::size_t monthIndex() const { return static_cast<std::size_t>(books_.month() - 1); }
  void addCards();
  void take(const Recordset& row);

  Books& books_;
  const CardTally& cards_;
  std::unordered_map<std::string, Correction> corrections_;
  FirstLevel departments_;
  FirstLevel categories_;
  BookFigures figures_;
};

void Ledger::addCards() {
  figures_.cardsInUse = cards_.inUse;
  figures_.cardsDisposed = cards_.disposed;
  for (std::size_t month = 0; month <= monthIndex(); ++month) figures_.depreciationByMonth.at(month) = 0;
  for (const auto& [number, card] : cards_.byNumber) {
    if (!card.inUse) continue;
    figures_.value += card.value;
    categories_.add(card.category, card.value);
  }
}

void Ledger::take(const Recordset& row) {
  const std::string number = row.Fields(0).textOrEmpty();
  const auto correction = corrections_.find(number);
  const bool corrected = correction != corrections_.end();
  double accumulated = corrected ? correction->second.accumulated : row.Fields(1).numberOrZero();
  const std::size_t from = corrected ? static_cast<std::size_t>(correction->second.firstMonth - 1) : 0;
  double ofMonth = 0;
  for (std::size_t month = 0; month <= monthIndex(); ++month) {
    ofMonth = row.Fields(kFirstMonthColumn + month).numberOrZero();
    *figures_.depreciationByMonth.at(month) += ofMonth;
    if (month >= from) accumulated += ofMonth;
  }
  const auto card = cards_.byNumber.find(number);
  if (card == cards_.byNumber.end()) return;
  departments_.add(card->second.department, ofMonth);
  if (!card->second.inUse) return;
  figures_.accumulated += accumulated;
  categories_.add(card->second.category, -accumulated);
}

}  // namespace

BookFigures readFigures(Books& books, const CardTally& cards) {
  return Ledger(books, cards).figures();
}

}  // namespace zelkor
