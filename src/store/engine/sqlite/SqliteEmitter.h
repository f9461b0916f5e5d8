#pragma once

#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {

/// SQLite: dynamic types, texts compared by the collation of a column, no ALL and ANY, no ties.
class SqliteEmitter final : public Emitter {
 public:
  using Emitter::Emitter;

  void endOutermost(const bound::Select& select, std::size_t rowKeys) override;

 protected:
  void cast(ColumnType) override {}
  void caseBlind(const bound::Node& operand) override;
  void conditionAsValue(const bound::Node& operand) override;
  void bounds(const bound::Between& test) override;
  void boundOf(const bound::Node& node);
  void quantified(const bound::Quantified& node) override;
  void topWithTies(const bound::Select& select, bool named, bool ordered) override;
};

}  // namespace zelkor::dialect
