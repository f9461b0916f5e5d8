#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/dialect/Translation.h"

namespace zelkor {

/// Finds a result's columns by their names in any case; of several with one name the first. The columns must
/// outlive it.
class ColumnNames {
 public:
  explicit ColumnNames(std::span<const dialect::OutputColumn> columns);

  std::optional<std::size_t> find(std::string_view name) const;

 private:
  struct Hash {
    std::size_t operator()(std::string_view name) const;
  };
  struct Same {
    bool operator()(std::string_view a, std::string_view b) const { return dialect::sameName(a, b); }
  };
  std::span<const dialect::OutputColumn> columns_;
  std::unordered_map<std::string_view, std::size_t, Hash, Same> places_;
  // Each row is mostly asked for the same columns in the same order: for each column, which one was asked for
  // after it the last time.
  mutable std::vector<std::size_t> next_;
  mutable std::size_t last_ = 0;
};

}  // namespace zelkor
