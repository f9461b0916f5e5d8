#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

  std::optional<std::size_t> find(std::string_view name) const {
    if (next_ == asked_.size() || !asked_[next_].isCalled(name)) return findUnexpected(name);
    const std::size_t column = asked_[next_].column;
    if (++next_ == asked_.size()) next_ = 0;
    return column;
  }

 private:
  struct Hash {
    std::size_t operator()(std::string_view name) const;
  };
  struct Same {
    bool operator()(std::string_view a, std::string_view b) const { return dialect::sameName(a, b); }
  };
  /// A name that has been asked for, kept in place: those of a row are in a few lines of the cache.
  struct Asked {
    std::array<char, 28> letters;
    std::uint16_t length;
    std::uint16_t column;

    bool isCalled(std::string_view name) const {
      return name.size() == length && std::memcmp(name.data(), letters.data(), length) == 0;
    }
  };

  std::optional<std::size_t> findUnexpected(std::string_view name) const;
  void expectAfter(std::string_view name, std::size_t column) const;

  std::unordered_map<std::string_view, std::size_t, Hash, Same> places_;
  // Each row is mostly asked for the same columns in the same order, which is this one.
  mutable std::vector<Asked> asked_;
  mutable std::size_t next_ = 0;  // place in it of the column that is to be expected
};

}  // namespace zelkor
