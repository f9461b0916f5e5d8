#pragma once

#include <cstddef>
#include <span>
#include <vector>

// Which columns of a table are on which page, how wide and in which size of letters.
namespace zelkor {

/// What a column needs, as multiples of the letters' size, its margins included.
struct ColumnNeed {
  double least = 0;      // what cannot be broken
  double whole = 0;      // all texts on one line, where that is not too wide
  double told = 0;       // in points: as wide as it may become where there is room
  bool leads = false;    // a text that tells what the row is about
  std::size_t unit = 0;  // columns of one unit share a caption and stay together
};

/// Columns by their places. Those that do not fit beside each other are in further bands, which begin with
/// the same leading columns.
struct ColumnFit {
  double size = 0;                              // of the letters, in points
  std::vector<double> widths;                   // in points
  std::vector<std::vector<std::size_t>> bands;  // at least one
};

inline constexpr double kUsualSize = 9;
inline constexpr double kSmallestSize = 7;

/// For pages on which so many points stand side by side. Letters become smaller, then texts are broken into
/// lines, then columns go on on further pages.
ColumnFit fitColumns(std::span<const ColumnNeed> columns, double pageWidth);

}  // namespace zelkor
