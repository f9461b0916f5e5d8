#pragma once

#include <optional>

#include "base/Currency.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The column `dblDeprThisYear` of the depreciation ledger. The year's total of the card computed last stands
/// on every row, so each card would rewrite the whole table. Only the content at the end of a walk can be
/// observed: a walk therefore keeps the total and writes it once when it ends or fails.
class DeprThisYear {
 public:
  enum class Writing { AtOnce, WhenWalkEnds };

  DeprThisYear(Database& data, Writing writing) : data_(data), writing_(writing) {}

  /// Sets every row to `total`, at once or when the walk ends.
  void set(Currency total);
  /// Writes what is kept; to be called at the end of a walk, also of one that failed.
  void write();

 private:
  Database& data_;
  Writing writing_;
  std::optional<Currency> kept_;
};

}  // namespace zelkor
