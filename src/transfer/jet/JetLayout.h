#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zelkor::jet {

static_assert(std::endian::native == std::endian::little, "numbers are taken from the file as they stand");

/// The number that begins at `place`; the caller has checked that it lies within.
template <typename Number>
Number numberAt(std::string_view bytes, std::size_t place) {
  Number number;
  std::memcpy(&number, bytes.data() + place, sizeof(Number));
  return number;
}

/// The places and sizes in which Jet 3 and Jet 4 differ.
struct Layout {
  bool isJet3;
  std::size_t pageSize;
  std::size_t rowCount;   // on a page of rows; the places of the rows follow
  std::size_t countSize;  // bytes of the counts within a row

  // Within a table's definition.
  std::size_t rows;
  std::size_t lastCounter;
  std::size_t columns;
  std::size_t logicalIndexes;
  std::size_t realIndexes;
  std::size_t ownedPages;
  std::size_t pagesWithRoom;
  std::size_t entries;  // one per real index, then one per column
  std::size_t indexCountSize;
  std::size_t nameLengthSize;

  // Within a column's entry.
  std::size_t columnSize;
  std::size_t number;
  std::size_t variableIndex;
  std::size_t displayIndex;
  std::size_t precision;  // the scale follows
  std::size_t columnFlags;
  std::size_t fixedOffset;
  std::size_t length;

  // Within the entry of an index: what Jet 4 has in front of it, and in front of and after its flags.
  std::size_t beforeIndex;
  std::size_t beforeIndexFlags;
  std::size_t afterIndexFlags;
};

inline constexpr Layout kJet3{
    .isJet3 = true,
    .pageSize = 2048,
    .rowCount = 8,
    .countSize = 1,
    .rows = 12,
    .lastCounter = 16,
    .columns = 25,
    .logicalIndexes = 27,
    .realIndexes = 31,
    .ownedPages = 35,
    .pagesWithRoom = 39,
    .entries = 43,
    .indexCountSize = 8,
    .nameLengthSize = 1,
    .columnSize = 18,
    .number = 1,
    .variableIndex = 3,
    .displayIndex = 5,
    .precision = 9,
    .columnFlags = 13,
    .fixedOffset = 14,
    .length = 16,
    .beforeIndex = 0,
    .beforeIndexFlags = 0,
    .afterIndexFlags = 0,
};
inline constexpr Layout kJet4{
    .isJet3 = false,
    .pageSize = 4096,
    .rowCount = 12,
    .countSize = 2,
    .rows = 16,
    .lastCounter = 20,
    .columns = 45,
    .logicalIndexes = 47,
    .realIndexes = 51,
    .ownedPages = 55,
    .pagesWithRoom = 59,
    .entries = 63,
    .indexCountSize = 12,
    .nameLengthSize = 2,
    .columnSize = 25,
    .number = 5,
    .variableIndex = 7,
    .displayIndex = 9,
    .precision = 11,
    .columnFlags = 15,
    .fixedOffset = 21,
    .length = 23,
    .beforeIndex = 4,
    .beforeIndexFlags = 4,
    .afterIndexFlags = 5,
};

using PageNumber = std::uint32_t;

/// Points to a row of a page.
struct RowPointer {
  std::uint32_t value = 0;

  PageNumber page() const { return value >> 8; }
  std::size_t row() const { return value & 0xFF; }
};

}  // namespace zelkor::jet
