#pragma once

#include <optional>
#include <string>

#include "store/dialect/binding/Schema.h"
#include "store/engine/Engine.h"
#include "transfer/CarriedCell.h"

namespace zelkor {

/// Reads the cells of one column in the terms of its type. Engines keep what they are given, so that a cell
/// may hold something else than its column says; it is carried as nearly as the type allows.
class CellReading {
 public:
  /// `decimalAmounts`: the text of an amount is exact.
  CellReading(int place, dialect::ColumnType type, bool decimalAmounts)
      : place_(place), type_(type), decimalAmounts_(decimalAmounts) {}

  /// The cell of the statement's row; valid until the next is read.
  CarriedCell read(const EngineStatement& row);
  /// What could not be carried of the cell that was read last.
  const std::optional<std::string>& problem() const { return problem_; }

 private:
  std::optional<CarriedCell> exact(const EngineStatement& row, CellKind kind);
  std::optional<CarriedCell> exactText(const EngineStatement& row, CellKind kind) const;
  std::optional<CarriedCell> exactNumber(const EngineStatement& row, CellKind kind) const;
  CarriedCell nearest(const EngineStatement& row, CellKind kind);
  CarriedCell nearestText(const EngineStatement& row, CellKind kind);
  CarriedCell nearestValue(const EngineStatement& row);

  int place_;
  dialect::ColumnType type_;
  bool decimalAmounts_;
  std::string buffer_;
  std::optional<std::string> problem_;
};

}  // namespace zelkor
