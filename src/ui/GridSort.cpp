#include "ui/GridSort.h"

#include <algorithm>
#include <QCollator>
#include <string>
#include <utility>

#include "base/Conversion.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

template <typename Key>
using Keyed = std::vector<std::pair<Key, std::uint32_t>>;

template <typename Key>
void arrange(Keyed<Key> keyed, bool descending, std::vector<std::uint32_t>& rows) {
  std::ranges::stable_sort(keyed, [descending](const auto& left, const auto& right) {
    return descending ? right.first < left.first : left.first < right.first;
  });
  std::ranges::transform(keyed, rows.begin(), [](const auto& each) { return each.second; });
}

double numberIn(std::string text) {
  std::erase(text, ',');
  return Val(text);
}

class ByText {
 public:
  explicit ByText(const QCollatorSortKey& key) : key_(key) {}
  bool operator<(const ByText& other) const { return key_ < other.key_; }

 private:
  QCollatorSortKey key_;
};

}  // namespace

void sortRows(const TextGrid& grid, const GridSort& sort, std::vector<std::uint32_t>& rows) {
  if (grid.alignment(sort.column) == Align::Right) {
    Keyed<double> keyed;
    for (const std::uint32_t row : rows) keyed.emplace_back(numberIn(grid.text(row, sort.column)), row);
    return arrange(std::move(keyed), sort.descending, rows);
  }
  QCollator order(QLocale(QLocale::Chinese, QLocale::China));
  order.setNumericMode(true);
  order.setCaseSensitivity(Qt::CaseInsensitive);
  Keyed<ByText> keyed;
  keyed.reserve(rows.size());
  for (const std::uint32_t row : rows) {
    keyed.emplace_back(ByText(order.sortKey(toQt(grid.text(row, sort.column)))), row);
  }
  arrange(std::move(keyed), sort.descending, rows);
}

}  // namespace zelkor
