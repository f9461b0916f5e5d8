#include "archives/LevelTree.h"

#include <numeric>
#include <utility>

namespace zelkor {

void LevelTree::add(Place above, TreeRow row) {
  (above ? entries_[*above].below : first_).push_back(entries_.size());
  entries_.push_back({std::move(row), {}});
}

std::vector<std::size_t> LevelTree::newPlaces() {
  std::vector<std::size_t> places(entries_.size() - known_);
  std::iota(places.begin(), places.end(), known_);
  known_ = entries_.size();
  return places;
}

std::vector<TreeRow> LevelTree::rows() const {
  std::vector<TreeRow> rows;
  append(first_, rows);
  return rows;
}

void LevelTree::append(const std::vector<std::size_t>& places, std::vector<TreeRow>& rows) const {
  for (const std::size_t place : places) {
    rows.push_back(entries_[place].row);
    append(entries_[place].below, rows);
  }
}

}  // namespace zelkor
