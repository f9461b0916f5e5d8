#pragma once

#include <optional>
#include <vector>

#include "store/dialect/binding/BindScope.h"
#include "store/dialect/binding/BindTree.h"
#include "store/dialect/reading/Ast.h"

namespace zelkor::dialect {

/// Binds expressions whose names are looked up in one scope.
class ExprBinder {
 public:
  ExprBinder(BindContext& context, const Scope& scope) : context_(context), scope_(scope) {}

  bound::Node value(const Expr& expr);
  bound::Node condition(const Expr& expr);
  /// Ready to be stored into `target`.
  bound::Node assigned(const Expr& expr, const ColumnInfo& target);

 private:
  bound::Node bind(const Expr& expr);
  bound::Node bind(const NullConst&);
  bound::Node bind(const BooleanConst& constant);
  bound::Node bind(const LiteralRef& literal);
  bound::Node bind(const OrdinalConst& ordinal);
  bound::Node bind(const ColumnRef& reference);
  bound::Node bind(const Star&);
  bound::Node bind(const Unary& expr);
  bound::Node bind(const Binary& expr);
  bound::Node bind(const Like& expr);
  bound::Node bind(const Between& expr);
  bound::Node bind(const IsNull& expr);
  bound::Node bind(const InList& expr);
  bound::Node bind(const InSelect& expr);
  bound::Node bind(const Exists& expr);
  bound::Node bind(const ScalarSelect& expr);
  bound::Node bind(const Quantified& expr);
  bound::Node bind(const FunctionCall& expr);
  bound::Select subselect(const Select& select);
  bound::Select oneColumn(const Select& select);
  bound::Select comparedColumn(const Select& select);

  BindContext& context_;
  const Scope& scope_;
};

/// The FROM clause: its tables as a scope, and the tree in which they are joined.
struct BoundFrom {
  std::vector<bound::Source> sources;
  Scope scope;
};
BoundFrom bindFrom(BindContext& context, const std::vector<TableSource>& from, const Scope* outer);
/// Which tables of the scope can be missing in a joined row, when each row can be addressed by one row key
/// per table; nullopt when it cannot.
std::optional<std::vector<bool>> missingTables(const std::vector<bound::Source>& sources, const Scope& scope);

struct BoundSelect {
  bound::Select select;
  Scope scope;  // of its FROM clause
  /// For each table of the scope whether a row may lack it; none when rows cannot be addressed by row keys.
  std::vector<bool> missing;
};
BoundSelect bindSelect(BindContext& context, const Select& select, const Scope* outer);
/// Whether two expressions are the same, literals and all, but for the numbers of their parameters.
bool sameForm(BindContext& context, const bound::Node& left, const bound::Node& right);
/// The first output column of that form, compared case-blind.
std::optional<std::size_t> itemAlike(BindContext& context, const std::vector<bound::Item>& items,
                                     const bound::Node& node);
/// 3122 where the expression names a column that is neither grouped nor gathered by an aggregate.
void requireGrouped(BindContext& context, const std::vector<bound::Node>& groupKeys, const bound::Node& node);
/// The output columns as those of a table.
std::vector<ColumnInfo> outputColumns(const bound::Select& select);

/// The rows with each item ready to be stored into its column.
bound::Select storedRows(BindContext& context, BoundSelect rows, const std::vector<ColumnInfo>& columns);
bound::Insert bindInsert(BindContext& context, const Insert& insert);
bound::Update bindUpdate(BindContext& context, const Update& update);
bound::Delete bindDelete(BindContext& context, const Delete& statement);

}  // namespace zelkor::dialect
