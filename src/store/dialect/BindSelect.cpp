#include "base/RuntimeError.h"
#include "store/dialect/Bind.h"
#include "store/dialect/Rewrite.h"
#include "store/dialect/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

constexpr int firstExpressionNumber = 1000;

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
    select.distinct = select_.distinct;
    select.top = select_.top;
    bindItems();
    ExprBinder binder(context_, result_.scope);
    if (select_.where) select.where = binder.condition(*select_.where);
    for (const Expr& expr : select_.groupBy) select.groupBy.push_back(caseBlind(binder.value(expr)));
    if (select_.having) select.having = binder.condition(*select_.having);
    for (const UnionPart& part : select_.unions) bindPart(part);
    bindOrder();
    select.aggregated = aggregated();
    if (!select.aggregated && !select.distinct && select.unions.empty())
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
    const std::size_t only = star.table.empty() ? scope.sources.size() : scope.sourceNamed(star.table);
    for (std::size_t i = 0; i < scope.sources.size(); ++i) {
      if (!star.table.empty() && i != only) continue;
      for (const ColumnInfo& column : scope.sources[i].columns.columns)
        add(columnNode(scope.sources[i], i, column), column.name, false);
    }
  }

  void bindItem(const SelectItem& item) {
    Node node = ExprBinder(context_, result_.scope).value(item.expr);
    if (!item.alias.empty()) return add(std::move(node), item.alias, true);
    if (const auto* column = std::get_if<bound::Column>(&node.node)) {
      std::string name = column->name;
      return add(std::move(node), std::move(name), false);
    }
    add(std::move(node), "Expr" + std::to_string(firstExpressionNumber + unnamed_++), false);
  }

  void add(Node node, std::string name, bool named) {
    bound::Item item;
    if (const auto* column = std::get_if<bound::Column>(&node.node); column && !column->table.empty()) {
      item.source = column->source;
      item.sourceColumn = column->name;
    }
    item.expr = std::move(node);
    item.name = std::move(name);
    item.named = named;
    result_.select.items.push_back(std::move(item));
  }

  void bindPart(const UnionPart& part) {
    bound::Select select = bindSelect(context_, part.select, result_.scope.outer).select;
    if (select.items.size() != result_.select.items.size())
      throw RuntimeError(ErrorNumber::UnionColumnCount,
                         "在联合查询中所选定的两个数据表或查询中的列数不匹配。");
    result_.select.unions.push_back({part.kind == UnionKind::All, std::move(select)});
  }

  void bindOrder() {
    Scope scope = result_.scope;
    const std::vector<bound::Item> items = result_.select.items;
    scope.items = &items;
    scope.itemsFirst = !select_.unions.empty();
    for (const OrderKey& key : select_.orderBy) {
      bound::OrderKey bound;
      bound.descending = key.descending;
      bound.item = repeatedItem(key.expr);
      if (!bound.item && needsSelectedKeys()) raiseKeyNotSelected();
      Node node = bound.item ? items[*bound.item].expr : ExprBinder(context_, scope).value(key.expr);
      bound.expr = caseBlind(std::move(node));
      result_.select.orderBy.push_back(std::move(bound));
    }
  }

  bool needsSelectedKeys() const {
    return !select_.unions.empty() || (result_.select.distinct && result_.select.top);
  }

  [[noreturn]] static void raiseKeyNotSelected() {
    throw RuntimeError(ErrorNumber::OrderNotSelected, "ORDER BY 表达式包含查询没有选定的字段。");
  }

  // The output column that an order key names by its place, its alias or its own name.
  std::optional<std::size_t> repeatedItem(const Expr& expr) const {
    const std::vector<bound::Item>& items = result_.select.items;
    if (const auto* ordinal = std::get_if<OrdinalConst>(&expr.node)) return ordinalItem(ordinal->value);
    const auto* reference = std::get_if<ColumnRef>(&expr.node);
    if (!reference) return std::nullopt;
    for (std::size_t i = 0; i < items.size(); ++i) {
      const auto* column = std::get_if<bound::Column>(&items[i].expr.node);
      if (!column || !sameName(column->name, reference->column)) continue;
      if (reference->table.empty() ? !items[i].named : sameName(column->qualifier, reference->table))
        return i;
    }
    if (select_.unions.empty()) return std::nullopt;
    for (std::size_t i = 0; i < items.size(); ++i)
      if (sameName(items[i].name, reference->column)) return i;
    return std::nullopt;
  }

  std::size_t ordinalItem(int place) const {
    if (place >= 1 && static_cast<std::size_t>(place) <= result_.select.items.size())
      return static_cast<std::size_t>(place) - 1;
    throw RuntimeError(ErrorNumber::SyntaxInQuery,
                       "语法错误 在查询表达式 'ORDER BY " + std::to_string(place) + "' 中。");
  }

  bool aggregated() const {
    if (!select_.groupBy.empty() || select_.having) return true;
    for (const SelectItem& item : select_.items)
      if (isAggregateCall(item.expr)) return true;
    return false;
  }

  BindContext& context_;
  const Select& select_;
  BoundSelect result_;
  int unnamed_ = 0;
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
