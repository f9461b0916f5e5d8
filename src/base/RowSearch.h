#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

/// The texts of many rows, made ready to be searched as one types.
class RowSearch {
 public:
  /// The next row, counted from 0.
  void add(std::string_view text);
  std::size_t rows() const { return ends_.size(); }

  /// The rows in whose texts every word of `sought` stands, from top to bottom, without regard to case. All
  /// rows where it holds no word.
  std::vector<std::uint32_t> find(std::string_view sought) const;

 private:
  std::string_view textOf(std::size_t row) const;

  std::string texts_;              // one after the other
  std::vector<std::size_t> ends_;  // of each row's text
};

}  // namespace zelkor
