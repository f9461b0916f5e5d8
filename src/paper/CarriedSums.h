#pragma once

#include <string>
#include <vector>

#include "base/DecimalSum.h"
#include "paper/PaperTable.h"

namespace zelkor {

/// What is carried over to the next page, added up from the texts of the cells.
class CarriedSums {
 public:
  explicit CarriedSums(const PaperTable& table);

  bool any() const { return !columns_.empty(); }
  /// A row of totals adds nothing.
  void add(std::size_t row);
  /// The texts by column, as the cells would show them.
  std::vector<std::string> texts() const;
  /// A text that is no narrower than any that may come into the column.
  std::string widest(std::size_t column) const;

 private:
  struct Column {
    std::size_t index;
    CarriedOver kind;
    DecimalSum sum;
    std::string last;
    bool filled = false;
    bool twoDecimals = true;  // as far as its texts have any
    DecimalSum magnitude = {};
    std::size_t decimals = 0;  // the most that a text has
  };

  std::string textOf(const Column& column) const;

  const PaperTable& table_;
  std::vector<Column> columns_;
};

}  // namespace zelkor
