#pragma once

#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {

/// SQLite: dynamic types, texts compared by the collation of a column, no ALL and ANY, no ties.
class SqliteEmitter final : public Emitter {
 public:
  using Emitter::Emitter;

  void rowKey(std::string_view qualifier) override;
  void endOutermost(const bound::Select& select) override;

 protected:
  std::string identifier(std::string_view name) const override { return std::string(name); }
  void slot(std::size_t number) override;
  void cast(ColumnType) override {}
  void caseBlind(const bound::Node& operand) override;
  void conditionAsValue(const bound::Node& operand) override;
  void quantified(const bound::Quantified& node) override;
  void direction(bool descending) override;
  void topWithTies(const bound::Select& select, bool named) override;
  std::string declaredType(const ColumnInfo& column) const override;
};

}  // namespace zelkor::dialect
