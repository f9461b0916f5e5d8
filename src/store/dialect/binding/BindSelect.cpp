#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/functions/SqlFunction.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

constexpr std::size_t kFirstExpressionNumber = 1000;

bool isAggregateCall(const Expr& expr);

bool anyAggregate(const std::vector<Expr>& exprs) {
  for (const Expr& expr : exprs)
    if (isAggregateCall(expr)) return true;
  return false;
}

struct AggregateSearch {
  bool operator()(const Unary& node) const { return isAggregateCall(*node.operand); }
  bool operator()(const Binary& node) const {
    return isAggregateCall(*node.left) || isAggregateCall(*node.right);
  }
  bool operator()(const Like& node) const {
    return isAggregateCall(*node.value) || isAggregateCall(*node.pattern);
  }
  bool operator()(const Between& node) const {
    return isAggregateCall(*node.value) || isAggregateCall(*node.low) || isAggregateCall(*node.high);
  }
  bool operator()(const IsNull& node) const { return isAggregateCall(*node.value); }
  bool operator()(const InList& node) const {
    return isAggregateCall(*node.value) || anyAggregate(node.items);
  }
  bool operator()(const InSelect& node) const { return isAggregateCall(*node.value); }
  bool operator()(const FunctionCall& node) const {
    return isAggregate(node.name) || anyAggregate(node.arguments);
  }
  bool operator()(const auto&) const { return false; }
};

bool isAggregateCall(const Expr& expr) {
  return std::visit(AggregateSearch{}, expr.node);
}

// Engines take a bare number in a group or an order for the place of a column.
bool isConstant(const Node& node) {
  return std::holds_alternative<bound::IntegerValue>(node.node) ||
         std::holds_alternative<bound::NullValue>(node.node);
}

class SelectBinder {
 public:
  SelectBinder(BindContext& context, const Select& select, const Scope* outer)
      : context_(context), select_(select) {
    BoundFrom from = bindFrom(context, select.from, outer);
    result_.select.from = std::move(from.sources);
    result_.scope = std::move(from.scope);
  }

  BoundSelect bind() {
    bound::Select& select = result_.select;
    const bool around = std::exchange(context_.inOrder, false);
    select.distinct = select_.distinct;
    select.top = select_.top;
    select.percent = select_.percent;
    bindItems();
    ExprBinder binder(context_, result_.scope);
    if (select_.where && isAggregateCall(*select_.where))
      throw RuntimeError(ErrorNumber::AggregateInWhere, "WHERE 子句中不能有合计函数。");
    if (select_.where) select.where = binder.condition(*select_.where);
    for (const Expr& expr : select_.groupBy) bindGroupKey(binder.value(expr));
    if (select_.having) select.having = binder.condition(*select_.having);
    for (const UnionPart& part : select_.unions) bindPart(part);
    select.aggregated = aggregated();
    if (select.aggregated) requireGroupedColumns();
    bindOrder();
    select.inOrder = std::exchange(context_.inOrder, around);
    if (!select.aggregated && !select.distinct && !select.percent && select.unions.empty())
      result_.missing = missingTables(select.from, result_.scope).value_or(std::vector<bool>());
    if (select.distinct || !select.unions.empty())
      for (bound::Item& item : select.items) item.expr = caseBlind(std::move(item.expr));
    return std::move(result_);
  }

 private:
  void bindItems() {
    for (const SelectItem& item : select_.items) {
      if (const auto* star = std::get_if<Star>(&item.expr.node)) {
        expand(*star);
      } else {
        bindItem(item);
      }
    }
  }

  void expand(const Star& star) {
    const Scope& scope = result_.scope;
    if (scope.sources.empty())
      throw RuntimeError(ErrorNumber::NoQueryInput, "查询输入必须包含至少一个表或查询。");
    const std::size_t only = star.table.empty() ? scope.sources.size() : scope.sourceNamed(star.table);
    for (std::size_t i = 0; i < scope.sources.size(); ++i) {
      if (!star.table.empty() && i != only) continue;
      for (const ColumnInfo& column : scope.sources[i].columns.columns)
        add(columnNode(scope.sources[i], i, column), column.name);
    }
  }

  void bindItem(const SelectItem& item) {
    Node node = ExprBinder(context_, result_.scope).value(item.expr);
    std::string name = item.alias;
    if (const auto* column = std::get_if<bound::Column>(&node.node); column && name.empty())
      name = column->name;
    if (name.empty()) name = "Expr" + std::to_string(kFirstExpressionNumber + result_.select.items.size());
    add(std::move(node), std::move(name));
    result_.select.items.back().aggregates = isAggregateCall(item.expr);
  }

  void add(Node node, std::string name) {
    bound::Item item;
    if (const auto* column = std::get_if<bound::Column>(&node.node); column && !column->table.empty()) {
      item.source = column->source;
      item.sourceColumn = column->name;
    }
    item.expr = std::move(node);
    item.name = std::move(name);
    result_.select.items.push_back(std::move(item));
  }

  void bindPart(const UnionPart& part) {
    bound::Select select = bindSelect(context_, part.select, result_.scope.outer).select;
    if (select.items.size() != result_.select.items.size())
      throw RuntimeError(ErrorNumber::UnionColumnCount,
                         "在联合查询中所选定的两个数据表或查询中的列数不匹配。");
    for (std::size_t i = 0; i < select.items.size(); ++i) {
      Node& item = select.items[i].expr;
      unite(result_.select.items[i].expr, item);
      item = caseBlind(std::move(item));
    }
    result_.select.unions.push_back({part.kind == UnionKind::All, std::move(select)});
  }

  // A key that an output column repeats is that column, so that engines see one expression and not two that
  // differ in the numbers of their parameters.
  void bindGroupKey(Node node) {
    if (isConstant(node)) return;
    if (node.type.type == ColumnType::Memo || node.type.type == ColumnType::Binary)
      throw RuntimeError(ErrorNumber::CannotGroupOnMemo, "不能按备注或 OLE 对象进行分组。");
    Node key = caseBlind(std::move(node));
    if (const auto place = itemAlike(context_, result_.select.items, key)) {
      Node& item = result_.select.items[*place].expr;
      item = caseBlind(std::move(item));
      key = item;
    }
    result_.select.groupBy.push_back(std::move(key));
  }

  void requireGroupedColumns() {
    const bound::Select& select = result_.select;
    for (const bound::Item& item : select.items) requireGrouped(context_, select.groupBy, item.expr);
    if (select.having) requireGrouped(context_, select.groupBy, *select.having);
  }

  void bindOrder() {
    const std::vector<bound::Item>& items = result_.select.items;
    for (const OrderKey& key : select_.orderBy) {
      bound::OrderKey bound = select_.unions.empty() ? ownKey(key.expr, items) : unitedKey(key.expr, items);
      bound.descending = key.descending;
      if (!bound.item && isConstant(bound.expr)) continue;
      result_.select.orderBy.push_back(std::move(bound));
    }
  }

  bound::OrderKey ownKey(const Expr& expr, const std::vector<bound::Item>& items) {
    bound::OrderKey key;
    if (const auto* ordinal = std::get_if<OrdinalConst>(&expr.node)) {
      key.item = ordinalItem(ordinal->value);
      key.expr = caseBlind(items[*key.item].expr);
      return key;
    }
    const bool ofRows = !result_.select.distinct && !result_.select.aggregated;
    const auto* name = std::get_if<ColumnRef>(&expr.node);
    // The columns after a total or after distinct rows can no longer be named.
    if (!ofRows && name) key.item = itemNamed(*name, items);
    if (key.item) {
      key.expr = caseBlind(items[*key.item].expr);
      return key;
    }
    Scope scope = result_.scope;
    if (name) scope.items = &items;
    key.expr = caseBlind(ExprBinder(context_, scope).value(expr));
    if (ofRows) return key;
    key.item = itemAlike(context_, items, key.expr);
    if (key.item) key.expr = caseBlind(items[*key.item].expr);
    if (result_.select.distinct && !key.item)
      throw RuntimeError(ErrorNumber::OrderConflictsWithDistinct, "ORDER BY 子句与 DISTINCT 冲突。");
    if (!key.item) requireGrouped(context_, result_.select.groupBy, key.expr);
    return key;
  }

  static std::optional<std::size_t> itemNamed(const ColumnRef& name, const std::vector<bound::Item>& items) {
    if (!name.table.empty()) return std::nullopt;
    for (std::size_t i = 0; i < items.size(); ++i)
      if (sameName(items[i].name, name.column)) return i;
    return std::nullopt;
  }

  // The rows of united queries are ordered by their columns alone.
  bound::OrderKey unitedKey(const Expr& expr, const std::vector<bound::Item>& items) const {
    bound::OrderKey key;
    if (const auto* ordinal = std::get_if<OrdinalConst>(&expr.node)) key.item = ordinalItem(ordinal->value);
    if (const auto* reference = std::get_if<ColumnRef>(&expr.node))
      key.item = itemNamed(ColumnRef{"", reference->column}, items);
    if (!key.item)
      throw RuntimeError(ErrorNumber::OrderNotSelected, "ORDER BY 表达式包含查询没有选定的字段。");
    return key;
  }

  std::size_t ordinalItem(int place) const {
    if (place >= 1 && static_cast<std::size_t>(place) <= result_.select.items.size())
      return static_cast<std::size_t>(place) - 1;
    throw RuntimeError(ErrorNumber::SyntaxInQuery,
                       "语法错误 在查询表达式 'ORDER BY " + std::to_string(place) + "' 中。");
  }

  bool aggregated() const {
    if (!select_.groupBy.empty() || select_.having) return true;
    const auto& items = result_.select.items;
    return std::any_of(items.begin(), items.end(), [](const bound::Item& item) { return item.aggregates; });
  }

  BindContext& context_;
  const Select& select_;
  BoundSelect result_;
};

}  // namespace

BoundSelect bindSelect(BindContext& context, const Select& select, const Scope* outer) {
  return SelectBinder(context, select, outer).bind();
}

std::vector<ColumnInfo> outputColumns(const bound::Select& select) {
  std::vector<ColumnInfo> columns;
  for (const bound::Item& item : select.items)
    columns.push_back({item.name, item.expr.type.type, item.expr.type.size, false});
  return columns;
}

}  // namespace zelkor::dialect
