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
  std::size_t variableColumns;
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

  // Within the entry of an index: what Jet 4 has in front of it, and in front of and behind its flags.
  std::size_t beforeIndex;
  std::size_t beforeIndexFlags;
  std::size_t afterIndexFlags;
};

inline constexpr Layout jet3{true, 2048, 8,  1, 12, 16, 23, 25, 27, 31, 35, 39, 43,
                             8,    1,    18, 1, 3,  5,  9,  13, 14, 16, 0,  0,  0};
inline constexpr Layout jet4{false, 4096, 12, 2, 16, 20, 43, 45, 47, 51, 55, 59, 63,
                             12,    2,    25, 5, 7,  9,  11, 15, 21, 23, 4,  4,  5};

using PageNumber = std::uint32_t;

/// Points to a row of a page.
struct RowPointer {
  std::uint32_t value = 0;

  PageNumber page() const { return value >> 8; }
  std::size_t row() const { return value & 0xFF; }
};

}  // namespace zelkor::jet
