#include <algorithm>
#include <utility>

#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"

namespace zelkor::dialect::bound {
namespace {

/// Compares two bound expressions but for the numbers of their parameters, which it pairs.
class FormComparison {
 public:
  bool operator()(const Node& left, const Node& right) {
    return left.node.index() == right.node.index() &&
           std::visit([&](const auto& a) { return same(a, std::get<std::decay_t<decltype(a)>>(right.node)); },
                      left.node);
  }

  const std::vector<std::pair<std::size_t, std::size_t>>& slots() const { return slots_; }

 private:
  bool same(const Node& a, const Node& b) { return (*this)(a, b); }
  bool same(const Box<Node>& a, const Box<Node>& b) { return (*this)(*a, *b); }
  bool same(const Box<Select>& a, const Box<Select>& b) { return same(*a, *b); }
  bool same(const Box<Join>& a, const Box<Join>& b) {
    return a->left == b->left && same(a->first, b->first) && same(a->second, b->second) && same(a->on, b->on);
  }

  template <typename Element>
  bool same(const std::vector<Element>& a, const std::vector<Element>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](const Element& x, const Element& y) { return same(x, y); });
  }
  bool same(const std::optional<Node>& a, const std::optional<Node>& b) {
    return a.has_value() == b.has_value() && (!a || same(*a, *b));
  }

  bool same(const NullValue&, const NullValue&) { return true; }
  bool same(const IntegerValue& a, const IntegerValue& b) { return a.value == b.value; }
  bool same(const TextValue& a, const TextValue& b) { return a.value == b.value; }
  bool same(const Parameter& a, const Parameter& b) {
    slots_.emplace_back(a.slot, b.slot);
    return true;
  }
  bool same(const Column& a, const Column& b) { return a.qualifier == b.qualifier && a.name == b.name; }
  bool same(const NumberOfText& a, const NumberOfText& b) {
    return a.function == b.function && same(a.column, b.column);
  }
  bool same(const RowKey& a, const RowKey& b) { return a.qualifier == b.qualifier; }
  bool same(const RowNumber& a, const RowNumber& b) { return same(a.order, b.order); }
  bool same(const Unary& a, const Unary& b) { return a.kind == b.kind && same(a.operand, b.operand); }
  bool same(const Binary& a, const Binary& b) {
    return a.kind == b.kind && same(a.left, b.left) && same(a.right, b.right);
  }
  bool same(const IsNull& a, const IsNull& b) { return a.negated == b.negated && same(a.value, b.value); }
  bool same(const Between& a, const Between& b) {
    return a.negated == b.negated && same(a.value, b.value) && same(a.low, b.low) && same(a.high, b.high);
  }
  bool same(const InList& a, const InList& b) {
    return a.negated == b.negated && same(a.value, b.value) && same(a.items, b.items);
  }
  bool same(const InSelect& a, const InSelect& b) {
    return a.negated == b.negated && same(a.value, b.value) && same(a.select, b.select);
  }
  bool same(const Exists& a, const Exists& b) { return same(a.select, b.select); }
  bool same(const ScalarSelect& a, const ScalarSelect& b) { return same(a.select, b.select); }
  bool same(const Quantified& a, const Quantified& b) {
    return a.kind == b.kind && a.all == b.all && same(a.value, b.value) && same(a.select, b.select);
  }
  bool same(const Call& a, const Call& b) {
    return a.function == b.function && same(a.arguments, b.arguments);
  }
  bool same(const Aggregate& a, const Aggregate& b) {
    return a.function == b.function && a.distinct == b.distinct && same(a.arguments, b.arguments);
  }
  bool same(const Choice& a, const Choice& b) {
    return same(a.condition, b.condition) && same(a.then, b.then) && same(a.otherwise, b.otherwise);
  }

  bool same(const Item& a, const Item& b) { return a.name == b.name && same(a.expr, b.expr); }
  bool same(const OrderKey& a, const OrderKey& b) {
    return a.descending == b.descending && same(a.expr, b.expr);
  }
  bool same(const Table& a, const Table& b) { return a.name == b.name && a.alias == b.alias; }
  bool same(const Derived& a, const Derived& b) { return a.alias == b.alias && same(a.select, b.select); }
  bool same(const Source& left, const Source& right) {
    return left.index() == right.index() &&
           std::visit([&](const auto& a) { return same(a, std::get<std::decay_t<decltype(a)>>(right)); },
                      left);
  }
  bool same(const Part& a, const Part& b) { return a.all == b.all && same(a.select, b.select); }
  bool same(const Select& a, const Select& b) {
    return a.distinct == b.distinct && a.top == b.top && a.percent == b.percent && same(a.items, b.items) &&
           same(a.from, b.from) && same(a.where, b.where) && same(a.groupBy, b.groupBy) &&
           same(a.having, b.having) && same(a.unions, b.unions) && same(a.orderBy, b.orderBy);
  }

  std::vector<std::pair<std::size_t, std::size_t>> slots_;
};

}  // namespace
}  // namespace zelkor::dialect::bound

namespace zelkor::dialect {
namespace {

bool sameLiteral(const BindContext& context, std::size_t left, std::size_t right) {
  const Literal& a = context.literalOf(left);
  const Literal& b = context.literalOf(right);
  return a.kind == b.kind && a.content() == b.content();
}

}  // namespace

bool sameForm(BindContext& context, const bound::Node& left, const bound::Node& right) {
  bound::FormComparison alike;
  if (!alike(left, right)) return false;
  for (const auto& [a, b] : alike.slots()) {
    if (a == b) continue;
    context.dependsOnLiterals = true;
    if (!sameLiteral(context, a, b)) return false;
  }
  return true;
}

std::optional<std::size_t> itemAlike(BindContext& context, const std::vector<bound::Item>& items,
                                     const bound::Node& node) {
  for (std::size_t i = 0; i < items.size(); ++i)
    if (sameForm(context, caseBlind(items[i].expr), node)) return i;
  return std::nullopt;
}

}  // namespace zelkor::dialect
