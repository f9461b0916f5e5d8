#include <algorithm>
#include <functional>
#include <optional>
#include <unordered_map>

#include "base/RuntimeError.h"
#include "transfer/Transfer.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

std::optional<std::size_t> counterOf(const TableDef& table) {
  const auto& columns = table.info.columns;
  const auto found = std::ranges::find(columns, ColumnType::Counter, &dialect::ColumnInfo::type);
  if (found == columns.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns.begin());
}

std::int64_t countRest(RowReader& rows) {
  std::int64_t count = 0;
  while (rows.next()) ++count;
  return count;
}

/// A row without its cells.
class RowDigest {
 public:
  RowDigest(RowReader& rows, std::size_t columns) {
    for (std::size_t column = 0; column < columns; ++column) {
      const CarriedCell cell = rows.cell(column);
      add(cell.index());
      std::visit([this](const auto& value) { addValue(value); }, cell);
    }
  }
  bool operator==(const RowDigest&) const = default;

 private:
  void addValue(std::monostate) {}
  void addValue(Currency value) { add(std::hash<std::int64_t>{}(value.scaled())); }
  void addValue(DateTime value) { add(std::hash<std::int64_t>{}(value.seconds())); }
  void addValue(const CarriedBytes& value) { addValue(value.content); }
  template <typename Plain>
  void addValue(const Plain& value) {
    add(std::hash<Plain>{}(value));
  }
  void add(std::size_t part) {
    constexpr std::size_t prime = 0x9E3779B97F4A7C15U;
    first_ = (first_ ^ part) * prime;
    second_ = (second_ + part) * prime ^ (second_ >> 31U);
  }

  std::size_t first_ = 0;
  std::size_t second_ = 0;
};

/// Compares the rows of one table.
class TableComparison {
 public:
  TableComparison(TransferSource& original, TransferSource& copy, const TableDef& table)
      : original_(original), copy_(copy), table_(table), counter_(counterOf(table)) {}

  std::optional<TransferProblem> difference() {
    try {
      if (const auto found = inOrder()) return counter_ ? byCounter() : found;
      return counterDifference();
    } catch (const RuntimeError& error) {
      return problem(0, "", error.what());
    }
  }

 private:
  TransferProblem problem(std::int64_t row, const std::string& column, const std::string& reason) const {
    return {table_.info.name, row, column, reason};
  }

  std::optional<TransferProblem> inOrder() {
    const auto left = original_.rows(table_);
    const auto right = copy_.rows(table_);
    for (std::int64_t row = 1;; ++row) {
      const bool more = left->next();
      if (right->next() != more) return ofNumbers(*left, *right, row - 1, more);
      if (!more) return std::nullopt;
      for (std::size_t column = 0; column < table_.info.columns.size(); ++column)
        if (left->cell(column) != right->cell(column))
          return withNumbers(*left, *right, row, table_.info.columns[column].name);
    }
  }

  TransferProblem ofNumbers(RowReader& left, RowReader& right, std::int64_t both, bool leftHasMore) const {
    const std::int64_t more = both + 1 + countRest(leftHasMore ? left : right);
    return problem(0, "", numbers(leftHasMore ? more : both, leftHasMore ? both : more));
  }

  TransferProblem withNumbers(RowReader& left, RowReader& right, std::int64_t row,
                              const std::string& column) const {
    const std::int64_t read = row + countRest(left);
    const std::int64_t stored = row + countRest(right);
    return problem(row, column, "值不同；" + numbers(read, stored));
  }

  static std::string numbers(std::int64_t read, std::int64_t stored) {
    return "来源 " + std::to_string(read) + " 行，目标 " + std::to_string(stored) + " 行。";
  }

  // A file keeps the rows of a table with a counter in the order of its numbers, however they were added.
  std::optional<TransferProblem> byCounter() {
    std::unordered_multimap<std::int64_t, RowDigest> digests;
    const auto left = original_.rows(table_);
    while (left->next()) digests.emplace(number(*left), RowDigest(*left, table_.info.columns.size()));
    const auto read = static_cast<std::int64_t>(digests.size());
    std::optional<std::int64_t> wrong;
    std::int64_t stored = 0;
    for (const auto right = copy_.rows(table_); right->next(); ++stored) {
      const RowDigest digest(*right, table_.info.columns.size());
      const auto [first, last] = digests.equal_range(number(*right));
      const auto found = std::find_if(first, last, [&](const auto& row) { return row.second == digest; });
      if (found == last) {
        if (!wrong) wrong = number(*right);
      } else {
        digests.erase(found);
      }
    }
    if (!wrong && !digests.empty()) wrong = digests.begin()->first;
    if (!wrong) return counterDifference();
    return problem(0, table_.info.columns[*counter_].name,
                   "编号 " + std::to_string(*wrong) + " 的行不同；" + numbers(read, stored));
  }

  std::int64_t number(RowReader& rows) const {
    const CarriedCell cell = rows.cell(*counter_);
    const auto* value = std::get_if<std::int64_t>(&cell);
    return value == nullptr ? 0 : *value;
  }

  std::optional<TransferProblem> counterDifference() {
    if (!counter_) return std::nullopt;
    const std::int64_t given = original_.lastCounter(table_);
    const std::int64_t reached = copy_.lastCounter(table_);
    if (reached >= given) return std::nullopt;
    return problem(
        0, table_.info.columns[*counter_].name,
        "自动编号应从 " + std::to_string(given) + " 之后继续，目标为 " + std::to_string(reached) + "。");
  }

  TransferSource& original_;
  TransferSource& copy_;
  const TableDef& table_;
  std::optional<std::size_t> counter_;
};

}  // namespace

std::vector<TransferProblem> compareTables(TransferSource& original, TransferSource& copy) {
  std::vector<TransferProblem> differences;
  for (const TableDef& table : original.tables())
    if (auto difference = TableComparison(original, copy, table).difference())
      differences.push_back(std::move(*difference));
  return differences;
}

}  // namespace zelkor
