#include <initializer_list>

#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"

namespace zelkor::dialect {
namespace {

using bound::Node;
using Name = std::optional<std::string>;

// Looks through an expression for a column that no group key holds and no aggregate gathers. Subqueries are
// left alone: the columns that they name are theirs, but for those of the rows around them.
class UngroupedSearch {
 public:
  UngroupedSearch(BindContext& context, const std::vector<Node>& keys) : context_(context), keys_(keys) {}

  Name in(const Node& node) const {
    const Node wanted = caseBlind(node);
    for (const Node& key : keys_)
      if (sameForm(context_, key, wanted)) return std::nullopt;
    return std::visit([this](const auto& alternative) { return of(alternative); }, node.node);
  }

 private:
  Name of(const bound::Column& column) const { return column.source ? Name(column.name) : std::nullopt; }
  Name of(const bound::NumberOfText& reading) const { return in(Node{reading.column, {}}); }
  Name of(const bound::Unary& node) const { return in(*node.operand); }
  Name of(const bound::Binary& node) const { return among({&*node.left, &*node.right}); }
  Name of(const bound::IsNull& node) const { return in(*node.value); }
  Name of(const bound::Between& node) const { return among({&*node.value, &*node.low, &*node.high}); }
  Name of(const bound::InList& node) const {
    const Name name = in(*node.value);
    return name ? name : among(node.items);
  }
  Name of(const bound::InSelect& node) const { return in(*node.value); }
  Name of(const bound::Quantified& node) const { return in(*node.value); }
  Name of(const bound::Call& node) const { return among(node.arguments); }
  Name of(const bound::Choice& node) const {
    return among({&*node.condition, &*node.then, &*node.otherwise});
  }
  Name of(const auto&) const { return std::nullopt; }

  Name among(std::initializer_list<const Node*> nodes) const {
    for (const Node* node : nodes)
      if (Name name = in(*node)) return name;
    return std::nullopt;
  }
  Name among(const std::vector<Node>& nodes) const {
    for (const Node& node : nodes)
      if (Name name = in(node)) return name;
    return std::nullopt;
  }

  BindContext& context_;
  const std::vector<Node>& keys_;
};

}  // namespace

void requireGrouped(BindContext& context, const std::vector<Node>& groupKeys, const Node& node) {
  if (const Name column = UngroupedSearch(context, groupKeys).in(node))
    throw RuntimeError(ErrorNumber::ColumnNotGrouped,
                       "试图执行的查询中不包含作为合计函数一部分的特定表达式 '" + *column + "'。");
}

}  // namespace zelkor::dialect
