#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "transfer/jet/JetLayout.h"

namespace zelkor::jet {

inline constexpr char kRowPage = 1;
inline constexpr char kDefinitionPage = 2;
inline constexpr char kMapPage = 5;

/// A row where it lies on its page.
struct PlacedRow {
  std::string_view content;
  bool deleted = false;
  bool moved = false;  // the content is a pointer to where the row is now
};

/// One page of a file, in memory.
class Page {
 public:
  static constexpr std::size_t largest = 4096;

  std::string_view content() const { return {bytes_.data(), size_}; }
  char kind() const { return bytes_[0]; }
  /// The definition page of the table that a page of rows belongs to; the next page of a definition.
  PageNumber link() const { return numberAt<PageNumber>(content(), 4); }
  std::size_t rows(const Layout& layout) const { return numberAt<std::uint16_t>(content(), layout.rowCount); }
  /// nullopt when the page has no such row or its place is none.
  std::optional<PlacedRow> row(std::size_t number, const Layout& layout) const;

  /// Makes room for a page of that size.
  char* fill(std::size_t size) {
    size_ = size;
    return bytes_.data();
  }

 private:
  std::array<char, largest> bytes_{};
  std::size_t size_ = 0;
};

}  // namespace zelkor::jet
