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
  explicit DeprThisYear(Database& data) : data_(data) {}

  void set(Currency total) { kept_ = total; }
  /// Writes what is kept; to be called at the end of a walk, also of one that failed.
  void write();

 private:
  Database& data_;
  std::optional<Currency> kept_;
};

}  // namespace zelkor
