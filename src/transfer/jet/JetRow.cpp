#include "transfer/jet/JetRow.h"

namespace zelkor::jet {
bool RowFields::open(std::string_view row) {
  row_ = row;
  offsetsFound_ = false;
  if (row.size() <= layout_.countSize) return false;
  columns_ = layout_.isJet3 ? byteAt(0) : numberAt<std::uint16_t>(row, 0);
  const std::size_t maskSize = (columns_ + 7) / 8;
  if (maskSize + layout_.countSize > row.size()) return false;
  mask_ = row.size() - maskSize;
  return true;
}

bool RowFields::isSet(const Column& column) const {
  if (column.number >= columns_) return false;
  return (byteAt(mask_ + column.number / 8) >> (column.number % 8) & 1) != 0;
}

std::optional<std::string_view> RowFields::field(const Column& column) {
  if (column.fixed) return fixedField(column);
  if (!offsetsFound_ && !findOffsets()) return std::nullopt;
  if (column.variableIndex >= variables_) return std::nullopt;
  const std::size_t begin = offsets_[column.variableIndex];
  const std::size_t end = offsets_[column.variableIndex + 1];
  if (begin < layout_.countSize || begin > end || end > mask_) return std::nullopt;
  return row_.substr(begin, end - begin);
}

std::optional<std::string_view> RowFields::fixedField(const Column& column) const {
  const std::size_t begin = layout_.countSize + column.fixedOffset;
  const bool hasOwnSize = column.type == Type::Text || column.type == Type::Binary;
  const std::size_t size = hasOwnSize ? column.length : sizeOf(column.type);
  if (begin + size > mask_) return std::nullopt;
  return row_.substr(begin, size);
}

bool RowFields::findOffsets() {
  offsetsFound_ = layout_.isJet3 ? findJet3Offsets() : findJet4Offsets();
  return offsetsFound_;
}

// In front of the mask stand, from back to front: the count of the offsets, each offset, the end of the last
// field.
bool RowFields::findJet4Offsets() {
  constexpr std::size_t size = 2;
  if (mask_ < size) return false;
  variables_ = numberAt<std::uint16_t>(row_, mask_ - size);
  const std::size_t room = (variables_ + 2) * size;
  if (variables_ >= kMostOffsets || room + layout_.countSize > mask_) return false;
  for (std::size_t i = 0; i <= variables_; ++i)
    offsets_[i] = numberAt<std::uint16_t>(row_, mask_ - (i + 2) * size);
  return true;
}

// The same with one byte each. A row of more than 256 bytes has jumps between the count and the offsets: for
// each further 256 bytes the first field that begins after them. Their number follows from the length of the
// row, so that the last one may stand for nothing.
bool RowFields::findJet3Offsets() {
  constexpr std::size_t reach = 256;
  if (mask_ < 1) return false;
  const std::size_t count = mask_ - 1;
  variables_ = byteAt(count);
  const std::size_t room = (row_.size() - 1) / reach;
  if (room + variables_ + 1 + layout_.countSize > count) return false;
  const std::size_t first = count - room - 1;
  const std::size_t jumps = (first - variables_) / reach < room ? room - 1 : room;
  std::size_t jumped = 0;
  for (std::size_t i = 0; i <= variables_; ++i) {
    while (jumped < jumps && byteAt(count - 1 - jumped) == i) ++jumped;
    offsets_[i] = static_cast<std::uint16_t>(byteAt(first - i) + jumped * reach);
  }
  return true;
}

}  // namespace zelkor::jet
