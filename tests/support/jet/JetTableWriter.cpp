#include "support/jet/JetTableWriter.h"

#include <algorithm>
#include <utility>

namespace zelkor::test::jet {

TableWriter::TableWriter(PageFile& file, TextEncoder& encoder, UsageMaps& maps,
                         std::vector<JetColumn> columns, std::vector<JetIndex> indexes, bool isSystem)
    : file_(file),
      maps_(maps),
      definition_(file, encoder, std::move(columns), std::move(indexes), isSystem),
      packer_(file, encoder, definition_.places()),
      rows_(file, definition_.page()),
      movedRows_(file, definition_.page()) {}

void TableWriter::add(const std::vector<JetCell>& cells, JetRowState state) {
  const std::string row = packer_.packed(cells);
  switch (state) {
    case JetRowState::Stored:
      rows_.add(row);
      break;
    case JetRowState::Deleted:
      rows_.add(row, RowPage::deleted | RowPage::pointer);
      break;
    case JetRowState::Moved: {
      std::string pointer;
      put(pointer, movedRows_.add(row, RowPage::deleted), 4);
      rows_.add(pointer, RowPage::pointer);
      break;
    }
  }
  if (state != JetRowState::Deleted) ++state_.rows;
  count(cells);
}

/// Deleted rows have taken their numbers, too.
void TableWriter::count(const std::vector<JetCell>& cells) {
  if (isCounterTold_) return;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto* number = std::get_if<std::int64_t>(&cells[i]);
    if (definition_.places()[i].column.counter && number != nullptr && *number > state_.lastCounter)
      state_.lastCounter = static_cast<std::uint32_t>(*number);
  }
}

void TableWriter::setLastCounter(std::int32_t number) {
  state_.lastCounter = static_cast<std::uint32_t>(number);
  isCounterTold_ = true;
}

std::uint32_t TableWriter::emptyIndex() {
  constexpr std::size_t entries[] = {0xF8, 0x1E0};
  const Format& format = file_.format();
  std::string page;
  put(page, 0x0104, 2);
  put(page, format.pageSize - entries[format.isJet3() ? 0 : 1], 2);
  put(page, definition_.page(), 4);
  const std::uint32_t number = file_.allocate();
  file_.write(number, std::move(page));
  return number;
}

void TableWriter::finish() {
  rows_.finish();
  movedRows_.finish();
  std::vector<std::uint32_t> pages = rows_.numbers();
  pages.insert(pages.end(), movedRows_.numbers().begin(), movedRows_.numbers().end());
  std::sort(pages.begin(), pages.end());
  state_.ownedPages = maps_.store(pages);
  state_.freePages = maps_.store({});
  for (std::size_t i = 0; i < definition_.indexes(); ++i) {
    const std::uint32_t root = emptyIndex();
    state_.indexes.push_back({maps_.store({root}), root});
  }
  for (RowPages& values : packer_.longValues()) {
    values.finish();
    const std::uint32_t owned = maps_.store(values.numbers());
    state_.longColumns.push_back({owned, maps_.store({})});
  }
  definition_.write(state_);
}

}  // namespace zelkor::test::jet
