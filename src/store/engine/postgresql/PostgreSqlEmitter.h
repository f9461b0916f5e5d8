#pragma once

#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {

/// PostgreSQL: strict types, names folded to lower case, texts of type citext in a database of C collation.
///
/// The engine declares every parameter as text and each use is cast, so that a text that leaves parameters
/// out needs no other numbering.
class PostgreSqlEmitter final : public Emitter {
 public:
  using Emitter::Emitter;

  void endOutermost(const bound::Select& select, std::size_t rowKeys) override;

 protected:
  void slot(std::size_t number) override;
  void cast(ColumnType type) override;
  void caseBlind(const bound::Node& operand) override;
  void conditionAsValue(const bound::Node& operand) override;
  void bounds(const bound::Between& test) override;
  void quantified(const bound::Quantified& node) override;
  void branch(const bound::Node& node) override;
  void aggregate(const bound::Aggregate& node) override;
  void binary(const bound::Binary& node, int precedence) override;
  void negative(const bound::Node& operand) override;
  void numberCast(const bound::NumberOfText& node) override;
  void topWithTies(const bound::Select& select, bool named, bool ordered) override;
  std::string declaredType(const ColumnInfo& column) const override;
  void callName(const SqlFunction& function) override;
  void beforeLastMatch(const bound::Table& target) override;
  void behindLastMatch(const bound::Update& update) override;
  bool movesRows() const override { return true; }
  bool keysNestedRows() const override { return true; }
  std::string_view betweenSources(const std::vector<bound::Source>& sources) const override;

 private:
  void firstRows(const bound::Select& select);

  bool deferred_ = false;  // parameters are told to the plan when it runs
};

}  // namespace zelkor::dialect
