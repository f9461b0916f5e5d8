#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/jet/JetFileWriter.h"

namespace zelkor::test::jet {

/// The places and sizes in which the two versions differ.
struct Format {
  JetVersion version;
  std::size_t pageSize;
  std::size_t rowCountPlace;  // on a page of rows; the rows' offsets follow
  std::size_t mapSize;        // bytes of a usage map
  std::size_t countSize;      // bytes of the counts and offsets in a row

  bool isJet3() const { return version == JetVersion::Jet3; }
  std::size_t rowRoom() const { return pageSize - rowCountPlace - 4; }
};

inline constexpr Format kJet3{JetVersion::Jet3, 2048, 8, 133, 1};
inline constexpr Format kJet4{JetVersion::Jet4, 4096, 12, 69, 2};

/// Appends a number, its low byte first.
inline void put(std::string& out, std::uint64_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> (8 * i)));
}

inline void putAt(std::string& out, std::size_t place, std::uint64_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) out[place + i] = static_cast<char>(value >> (8 * i));
}

/// Points to a row of a page.
inline std::uint32_t rowPointer(std::uint32_t page, std::size_t row) {
  return page << 8 | static_cast<std::uint32_t>(row);
}

}  // namespace zelkor::test::jet
