#include <algorithm>
#include <stdexcept>
#include <utility>

#include "support/jet/JetTableWriter.h"

namespace zelkor::test::jet {
namespace {

constexpr std::size_t kPageHead = 8;
constexpr std::size_t kIndexColumns = 10;
constexpr std::uint32_t kMark = 1625;  // is at the head of each part of a Jet 4 definition
constexpr std::uint16_t kChinese = 0x0804;
constexpr std::uint16_t kGbk = 936;

}  // namespace

TableDefinition::TableDefinition(PageFile& file, TextEncoder& encoder, std::vector<JetColumn> columns,
                                 std::vector<JetIndex> indexes, bool isSystem)
    : file_(file),
      encoder_(encoder),
      places_(placesOf(std::move(columns), file.format())),
      indexes_(std::move(indexes)),
      isSystem_(isSystem) {
  TableState blank;
  blank.indexes.resize(indexes_.size());
  for (const ColumnPlace& place : places_)
    if (isLong(place.column)) blank.longColumns.emplace_back();
  const std::size_t room = file.format().pageSize - kPageHead;
  const std::size_t size = content(blank).size();
  for (std::size_t i = 0; i < size; i += room) pages_.push_back(file.allocate());
}

void TableDefinition::write(const TableState& state) const {
  const bool isJet3 = file_.format().isJet3();
  const std::size_t room = file_.format().pageSize - kPageHead;
  std::string rest = content(state);
  putAt(rest, 0, rest.size() + kPageHead, 4);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const std::string part = rest.substr(0, room);
    rest.erase(0, part.size());
    const std::size_t left = room - part.size();
    std::string page;
    put(page, 0x0102, 2);
    put(page, isJet3 ? 0x4356 : left < kPageHead ? 0 : left - kPageHead, 2);  // "VC" or the room left
    put(page, i + 1 < pages_.size() ? pages_[i + 1] : 0, 4);
    file_.write(pages_[i], page + part);
  }
}

std::string TableDefinition::content(const TableState& state) const {
  std::string out;
  addHead(out, state);
  for (std::size_t i = 0; i < indexes_.size(); ++i) {
    put(out, 0, 4);
    put(out, state.rows, file_.format().isJet3() ? 4 : 8);
  }
  for (std::size_t i = 0; i < places_.size(); ++i) addColumn(out, i);
  for (const ColumnPlace& place : places_) addName(out, place.column.name);
  for (std::size_t i = 0; i < indexes_.size(); ++i) addIndexColumns(out, indexes_[i], state.indexes[i]);
  for (std::size_t i = 0; i < indexes_.size(); ++i) addIndexHead(out, i);
  for (const JetIndex& index : indexes_) addName(out, index.name);
  auto maps = state.longColumns.begin();
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if (!isLong(places_[i].column)) continue;
    put(out, i, 2);
    put(out, maps->owned, 4);
    put(out, maps->free, 4);
    ++maps;
  }
  put(out, 0xFFFF, 2);
  return out;
}

void TableDefinition::addHead(std::string& out, const TableState& state) const {
  const bool isJet3 = file_.format().isJet3();
  put(out, 0, 4);  // the length, told last
  if (!isJet3) put(out, kMark, 4);
  put(out, state.rows, 4);
  put(out, state.lastCounter, 4);
  if (!isJet3) {
    put(out, 1, 8);  // counters count
    put(out, 0, 8);
  }
  put(out, isSystem_ ? 'S' : 'N', 1);
  put(out, places_.size(), 2);
  put(out, variableColumns(places_, places_.size()), 2);
  put(out, places_.size(), 2);
  put(out, indexes_.size(), 4);
  put(out, indexes_.size(), 4);
  put(out, state.ownedPages, 4);
  put(out, state.freePages, 4);
}

void TableDefinition::addColumn(std::string& out, std::size_t number) const {
  const bool isJet3 = file_.format().isJet3();
  const ColumnPlace& place = places_[number];
  const JetColumn& column = place.column;
  const bool isNumeric = column.type == JetType::Numeric;
  const std::uint64_t digits =
      static_cast<std::uint64_t>(column.precision) | static_cast<std::uint64_t>(column.scale) << 8;
  put(out, static_cast<std::uint64_t>(column.type), 1);
  if (!isJet3) put(out, kMark, 4);
  put(out, number, 2);
  put(out, place.variableIndex, 2);
  put(out, isJet3 ? 0 : number, 2);
  if (isJet3) {
    put(out, 0, 2);
    put(out, isNumeric ? digits : kChinese, 2);
    put(out, kGbk, 2);
  } else {
    put(out, isNumeric ? digits : kChinese, 4);
  }
  put(out, (isFixed(column) ? 1 : 0) | 2 | (column.counter ? 4 : 0) | (isSystem_ ? 0x10 : 0), 1);
  const bool isText = column.type == JetType::Text || column.type == JetType::Memo;
  if (!isJet3) put(out, isText ? 1 : 0, 5);  // may be compressed
  put(out, place.fixedOffset, 2);
  put(out, bytesOf(column, file_.format()), 2);
}

void TableDefinition::addName(std::string& out, const std::string& name) const {
  const std::string bytes = encoder_.name(name);
  put(out, bytes.size(), file_.format().countSize);
  out += bytes;
}

void TableDefinition::addIndexColumns(std::string& out, const JetIndex& index,
                                      const TableState::IndexPages& pages) const {
  const bool isJet3 = file_.format().isJet3();
  if (index.columns.size() > kIndexColumns) throw std::invalid_argument("too many columns in " + index.name);
  if (!isJet3) put(out, kMark, 4);
  for (const std::string& name : index.columns) {
    const auto place = std::find_if(places_.begin(), places_.end(),
                                    [&](const ColumnPlace& each) { return each.column.name == name; });
    if (place == places_.end()) throw std::invalid_argument("no column " + name);
    put(out, static_cast<std::uint64_t>(place - places_.begin()), 2);
    put(out, 1, 1);  // ascending
  }
  for (std::size_t i = index.columns.size(); i < kIndexColumns; ++i) put(out, 0x00FFFF, 3);
  put(out, pages.map, 4);
  put(out, pages.root, 4);
  if (!isJet3) put(out, 0, 4);
  put(out, (index.unique || index.primary ? 1 : 0) | (index.primary ? 8 : 0) | (isJet3 ? 0 : 0x80), 1);
  if (!isJet3) put(out, 0, 5);
}

void TableDefinition::addIndexHead(std::string& out, std::size_t number) const {
  const bool isJet3 = file_.format().isJet3();
  if (!isJet3) put(out, kMark, 4);
  put(out, number, 4);
  put(out, number, 4);
  put(out, 0, 1);
  put(out, 0xFFFFFFFF, 4);  // no relation
  put(out, 0, 4);
  put(out, 0x0404, 2);
  put(out, indexes_[number].primary ? 1 : 0, 1);
  if (!isJet3) put(out, 0, 4);
}

}  // namespace zelkor::test::jet
