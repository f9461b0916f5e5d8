#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/binding/BindTree.h"
#include "store/dialect/binding/ParameterSlot.h"
#include "store/dialect/binding/Schema.h"
#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/printing/RowOrder.h"

namespace zelkor::dialect {

/// Prints bound statements for one engine. What engines share is here; each override in a derived class
/// is a real difference of its engine.
class Emitter {
 public:
  Emitter(const EngineWords& words, std::span<const ParameterSlot> slots, bool fast)
      : words_(words), slots_(slots), fast_(fast) {}
  Emitter(const Emitter&) = delete;
  Emitter& operator=(const Emitter&) = delete;
  virtual ~Emitter() = default;

  std::string take() { return std::move(out_); }

  Emitter& text(std::string_view piece) {
    out_ += piece;
    return *this;
  }
  Emitter& name(std::string_view identifier) { return text(words_.quoted(identifier)); }
  void value(const bound::Node& node) { expr(node, 0); }
  void rowKey(std::string_view qualifier);

  /// The parameter of that number (from 1) holds a row key.
  void rowKeyParameter(std::size_t number) { out_ += words_.rowKeyParameter(number); }

  /// A whole SELECT as it is inside another statement; `named` prints the names of the output columns,
  /// `ordered` an order that leaves no rows alike.
  void select(const bound::Select& select, bool named, bool ordered = false);
  /// FROM, WHERE, GROUP BY and HAVING; `also` is a further condition, printed already.
  void tail(const bound::Select& select, std::string_view also = {});
  void fromClause(const std::vector<bound::Source>& sources);
  void orderBy(const bound::Select& select);
  /// Behind orderBy in a SELECT of tables: the order in which their rows were added.
  void tableOrder(const bound::Select& select);
  /// Ends an outermost query that wants the first `top` rows, for engines that can do it. Its first columns
  /// are `rowKeys` row keys and, with a top, the keys of its order.
  virtual void endOutermost(const bound::Select& select, std::size_t rowKeys) = 0;

  void insert(const bound::Insert& insert);
  void update(const bound::Update& update);
  void erase(const bound::Delete& statement);
  void createTable(std::string_view table, const std::vector<ColumnInfo>& columns,
                   std::span<const std::string> required = {});
  void columnDefinition(const ColumnInfo& column, bool required = false);

 protected:
  /// How strongly the operators bind, the weakest first.
  enum Strength : int { Whole, Or, And, Not, Comparison, Sum, Product, Concatenation, Sign, Operand };

  virtual void slot(std::size_t number) { out_ += words_.parameter(number); }
  virtual void cast(ColumnType type) = 0;
  virtual void caseBlind(const bound::Node& operand) = 0;
  virtual void conditionAsValue(const bound::Node& operand) = 0;
  /// The bounds of a BETWEEN, which come in either order; Null when one of them is.
  virtual void bounds(const bound::Between& test) = 0;
  virtual void quantified(const bound::Quantified& node) = 0;
  /// What follows THEN or ELSE.
  virtual void branch(const bound::Node& node) { expr(node, 0); }
  virtual void aggregate(const bound::Aggregate& node);
  virtual void numberCast(const bound::NumberOfText& node);
  void direction(bool descending) { out_ += words_.direction(descending); }
  virtual void topWithTies(const bound::Select& select, bool named, bool ordered) = 0;
  virtual std::string declaredType(const ColumnInfo& column) const;
  /// Around the rows of a joined update, for engines that take any of those that meet one row: of them the
  /// last counts.
  virtual void beforeLastMatch(const bound::Table&) {}
  virtual void behindLastMatch(const bound::Update&) {}
  /// Whether an engine has to be told the order of one table's rows, and of those that are alike in the ORDER
  /// BY, too.
  virtual bool movesRows() const { return false; }
  /// Whether the rows of tables have their keys also where the tables are joined in parentheses after JOIN.
  virtual bool keysNestedRows() const { return false; }
  virtual std::string_view betweenSources(const std::vector<bound::Source>&) const { return ", "; }
  virtual void callName(const SqlFunction& function);

  /// The order in which the rows were added that the aggregates gather; empty where no table says.
  std::vector<bound::OrderKey> gatheredOrder() const;
  /// The first rows with those that are alike, or a hundredth part of them, picked out by their ranks.
  /// `ordered`: they come in the order of the last item, which is none of their columns.
  void ranked(const bound::Select& select, bool named, bool ordered);
  /// SELECT and its columns: as they are, by their names, or numbered as in columnName.
  void core(const bound::Select& select, bool named, bool numbered = false);
  void orderKeys(const std::vector<bound::OrderKey>& keys, std::string_view before = "ORDER BY ");
  void keyDirection(const bound::OrderKey& key);
  void expr(const bound::Node& node, int precedence);
  void list(const std::vector<bound::Node>& nodes);
  virtual void binary(const bound::Binary& node, int precedence);
  virtual void negative(const bound::Node& operand);
  void subselect(const bound::Select& node);
  static int precedenceOf(bound::BinaryKind kind);
  static std::string_view signOf(bound::BinaryKind kind);

  const EngineWords& words_;
  std::string out_;

 private:
  EngineOrder order() const { return {movesRows(), keysNestedRows()}; }
  void node(const bound::NullValue&, int) { out_ += "NULL"; }
  void node(const bound::IntegerValue& value, int precedence);
  void node(const bound::TextValue& value, int precedence);
  void node(const bound::Parameter& parameter, int precedence);
  void node(const bound::Column& column, int precedence);
  void node(const bound::NumberOfText& reading, int precedence);
  void node(const bound::RowKey& key, int) { rowKey(key.qualifier); }
  void node(const bound::RowNumber& number, int);
  void node(const bound::Unary& unary, int precedence);
  void node(const bound::Binary& operation, int precedence) { binary(operation, precedence); }
  void node(const bound::IsNull& test, int precedence);
  void node(const bound::Between& test, int precedence);
  void node(const bound::InList& test, int precedence);
  void node(const bound::InSelect& test, int precedence);
  void node(const bound::Exists& test, int precedence);
  void node(const bound::ScalarSelect& select, int precedence);
  void node(const bound::Quantified& test, int) { quantified(test); }
  void node(const bound::Call& call, int precedence);
  void node(const bound::Aggregate& call, int) { aggregate(call); }
  void node(const bound::Choice& choice, int precedence);
  void source(const bound::Source& source);
  void part(const bound::Select& select, bool named);
  void compound(const bound::Select& select, bool named);
  void joinedUpdate(const bound::Update& update);

  std::span<const ParameterSlot> slots_;
  bool fast_;
  const bound::Select* gathered_ = nullptr;
};

}  // namespace zelkor::dialect
