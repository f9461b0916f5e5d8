#include "support/jet/JetRow.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace zelkor::test::jet {
namespace {

constexpr std::size_t kLongestInRow = 64;

[[noreturn]] void misfit(const JetColumn& column) {
  throw std::invalid_argument("no value for the column " + column.name);
}

/// Sign, then four words, the highest first.
std::string numeric(std::int64_t value) {
  std::string bytes(1, value < 0 ? '\x80' : '\0');
  const auto magnitude =
      value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  put(bytes, 0, 8);
  put(bytes, magnitude >> 32, 4);
  put(bytes, magnitude, 4);
  return bytes;
}

std::string number(const JetColumn& column, std::size_t size, const JetCell& cell) {
  std::string bytes;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
    if (column.type == JetType::Numeric) return numeric(*whole);
    if (column.type == JetType::Single || column.type >= JetType::Double) misfit(column);
    put(bytes, static_cast<std::uint64_t>(*whole), size);
  } else if (const auto* real = std::get_if<double>(&cell)) {
    if (column.type == JetType::Single) {
      put(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(*real)), size);
    } else if (column.type == JetType::Double || column.type == JetType::Date) {
      put(bytes, std::bit_cast<std::uint64_t>(*real), size);
    } else {
      misfit(column);
    }
  } else if (const auto* raw = std::get_if<JetBytes>(&cell); raw != nullptr && raw->content.size() == size) {
    bytes = raw->content;
  } else {
    misfit(column);
  }
  return bytes;
}

bool isTruth(const JetColumn& column, const JetCell& cell) {
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return *whole != 0;
  if (!std::holds_alternative<std::monostate>(cell)) misfit(column);
  return false;
}

}  // namespace

bool isLong(const JetColumn& column) {
  return column.type == JetType::Ole || column.type == JetType::Memo;
}

bool isFixed(const JetColumn& column) {
  return column.fixed || (!isLong(column) && column.type != JetType::Text && column.type != JetType::Binary);
}

std::size_t bytesOf(const JetColumn& column, const Format& format) {
  switch (column.type) {
    case JetType::Boolean:
    case JetType::Byte:
      return 1;
    case JetType::Short:
      return 2;
    case JetType::Long:
    case JetType::Single:
      return 4;
    case JetType::Money:
    case JetType::Double:
    case JetType::Date:
      return 8;
    case JetType::Guid:
      return 16;
    case JetType::Numeric:
      return 17;
    case JetType::Binary:
      return static_cast<std::size_t>(column.size);
    case JetType::Text:
      return static_cast<std::size_t>(column.size) * (format.isJet3() ? 1 : 2);
    case JetType::Ole:
    case JetType::Memo:
      return 0;
  }
  misfit(column);
}

std::vector<ColumnPlace> placesOf(std::vector<JetColumn> columns, const Format& format) {
  std::vector<ColumnPlace> places;
  std::size_t offset = 0;
  std::size_t variable = 0;
  for (JetColumn& column : columns) {
    const bool takesRoom = isFixed(column) && column.type != JetType::Boolean;
    const std::size_t size = takesRoom ? bytesOf(column, format) : 0;
    const std::size_t further = isFixed(column) ? 0 : 1;
    places.push_back({std::move(column), takesRoom ? offset : 0, variable});
    offset += size;
    variable += further;
  }
  return places;
}

std::size_t variableColumns(const std::vector<ColumnPlace>& places, std::size_t count) {
  if (count == 0) return 0;
  const ColumnPlace& last = places[count - 1];
  return last.variableIndex + (isFixed(last.column) ? 0 : 1);
}

// Two bytes for each character, and two in front of what was compressed; 255 bytes in Jet 3.
std::size_t RowPacker::longestValue(const JetColumn& column) const {
  const auto size = static_cast<std::size_t>(column.size);
  if (column.type != JetType::Text) return size;
  return format_.isJet3() ? std::min<std::size_t>(2 * size, 255) : 2 * size + 2;
}

struct RowPacker::Parts {
  std::string row;
  std::string values;
  std::vector<std::size_t> offsets;  // of the values, from the row's start
  std::string mask;
};

RowPacker::RowPacker(PageFile& file, TextEncoder& encoder, const std::vector<ColumnPlace>& places)
    : format_(file.format()), encoder_(encoder), places_(places) {
  for (const ColumnPlace& place : places)
    if (isLong(place.column)) longValues_.emplace_back(file, RowPage::kLongValues);
}

std::string RowPacker::packed(const std::vector<JetCell>& cells) {
  if (cells.size() > places_.size()) throw std::invalid_argument("more cells than columns");
  Parts parts;
  parts.mask.resize((cells.size() + 7) / 8);
  put(parts.row, cells.size(), format_.countSize);
  for (std::size_t i = 0; i < cells.size(); ++i) addCell(parts, i, cells[i]);
  const std::size_t fixedEnd = parts.row.size();
  parts.row += parts.values;
  for (std::size_t& offset : parts.offsets) offset += fixedEnd;
  parts.offsets.push_back(parts.row.size());
  if (variableColumns(places_, places_.size()) > 0) addOffsets(parts.row, parts.offsets, parts.mask.size());
  parts.row += parts.mask;
  if (parts.row.size() > format_.rowRoom()) throw std::invalid_argument("a row that no page holds");
  return std::move(parts.row);
}

void RowPacker::addCell(Parts& parts, std::size_t column, const JetCell& cell) {
  const JetColumn& def = places_[column].column;
  bool isSet = !std::holds_alternative<std::monostate>(cell);
  if (def.type == JetType::Boolean) {
    isSet = isTruth(def, cell);
  } else if (isFixed(def)) {
    parts.row += isSet ? fixed(def, cell) : std::string(bytesOf(def, format_), '\0');
  } else {
    parts.offsets.push_back(parts.values.size());
    if (isSet) parts.values += variable(column, cell);
  }
  char& bits = parts.mask[column / 8];
  if (isSet) bits = static_cast<char>(bits | 1 << column % 8);
}

std::string RowPacker::fixed(const JetColumn& column, const JetCell& cell) {
  const std::size_t size = bytesOf(column, format_);
  const auto* text = std::get_if<std::string>(&cell);
  if (column.type != JetType::Text || text == nullptr) return number(column, size, cell);
  std::string value = encoder_.name(*text);
  if (value.size() > size) misfit(column);
  while (value.size() < size) put(value, ' ', format_.countSize);
  return value;
}

std::string RowPacker::variable(std::size_t column, const JetCell& cell) {
  const JetColumn& def = places_[column].column;
  const bool isText = def.type == JetType::Text || def.type == JetType::Memo;
  JetPlace place = JetPlace::ByLength;
  std::string value;
  if (const auto* raw = std::get_if<JetBytes>(&cell)) {
    value = raw->content;
  } else if (const auto* text = std::get_if<std::string>(&cell); text != nullptr && isText) {
    value = encoder_.value(*text);
  } else if (const auto* memo = std::get_if<JetMemo>(&cell); memo != nullptr && isLong(def)) {
    place = memo->place;
    value = def.type == JetType::Ole ? memo->text : encoder_.value(memo->text);
  } else {
    misfit(def);
  }
  if (!isLong(def)) {
    if (value.size() > longestValue(def)) misfit(def);
    return value;
  }
  std::size_t index = 0;
  for (std::size_t i = 0; i < column; ++i) index += isLong(places_[i].column) ? 1 : 0;
  return longValue(longValues_[index], value, place);
}

std::string RowPacker::longValue(RowPages& pages, const std::string& value, JetPlace place) const {
  if (place == JetPlace::ByLength) {
    place = value.size() <= kLongestInRow       ? JetPlace::InRow
            : value.size() <= format_.rowRoom() ? JetPlace::SharedPage
                                                : JetPlace::Pages;
  }
  std::string result;
  switch (place) {
    case JetPlace::InRow:
      put(result, value.size() | 0x80000000U, 4);
      put(result, 0, 8);
      return result + value;
    case JetPlace::SharedPage:
      if (value.size() > format_.rowRoom()) throw std::invalid_argument("a long value that no page holds");
      put(result, value.size() | 0x40000000U, 4);
      put(result, pages.add(value), 8);
      return result;
    default:
      return reference(pages, value);
  }
}

/// The parts are written from the last to the first, since each names the one after it.
std::string RowPacker::reference(RowPages& pages, const std::string& value) const {
  const std::size_t room = format_.rowRoom() - 4;
  std::uint32_t next = 0;
  for (std::size_t left = value.size(); left > 0;) {
    const std::size_t size = left % room == 0 ? room : left % room;
    left -= size;
    std::string part;
    put(part, next, 4);
    next = pages.addAlone(part + value.substr(left, size));
  }
  std::string result;
  put(result, value.size(), 4);
  put(result, next, 8);
  return result;
}

void RowPacker::addOffsets(std::string& row, const std::vector<std::size_t>& offsets,
                           std::size_t maskSize) const {
  for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
    put(row, *offset, format_.countSize);
  if (format_.isJet3()) addJumps(row, offsets, maskSize);
  put(row, offsets.size() - 1, format_.countSize);
}

/// One byte does not say how often 256 went by: for each time stands the first offset after it, or 255
/// when only the row's own end lies there.
void RowPacker::addJumps(std::string& row, const std::vector<std::size_t>& offsets,
                         std::size_t maskSize) const {
  std::size_t jumps = 0;
  while ((row.size() + jumps + 1 + maskSize - 1) / 256 > jumps) ++jumps;
  for (std::size_t jump = jumps; jump > 0; --jump) {
    std::size_t first = 0;
    while (first < offsets.size() && offsets[first] < 256 * jump) ++first;
    put(row, first < offsets.size() ? first : 0xFF, 1);
  }
}

}  // namespace zelkor::test::jet
