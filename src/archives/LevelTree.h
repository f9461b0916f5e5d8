#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/TreeRow.h"

namespace zelkor {

/// A tree that is read level by level, what is below all entries of a level at once.
class LevelTree {
 public:
  /// The place of an entry; none is above the first ones.
  using Place = std::optional<std::size_t>;

  /// Adds an entry as the last one below that place.
  void add(Place above, TreeRow row);
  /// The places that were added since the last call: the level below which to read next.
  std::vector<std::size_t> newPlaces();
  const TreeRow& operator[](std::size_t place) const { return entries_[place].row; }
  /// Each entry with what is below it, before the next one.
  std::vector<TreeRow> rows() const;

 private:
  struct Entry {
    TreeRow row;
    std::vector<std::size_t> below;
  };
  void append(const std::vector<std::size_t>& places, std::vector<TreeRow>& rows) const;

  std::vector<Entry> entries_;
  std::vector<std::size_t> first_;
  std::size_t known_ = 0;
};

}  // namespace zelkor
