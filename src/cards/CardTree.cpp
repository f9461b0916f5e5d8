#include "cards/CardTree.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kRootCode = "&";

std::string_view codeColumn(CardQuery query) {
  return query == CardQuery::ByDepartment ? "sDeptNum" : "sTypeNum";
}

std::string_view rootName(CardQuery query) {
  if (query == CardQuery::Custom) return {};
  return query == CardQuery::ByDepartment ? "部门根节点名称" : "类别根节点名称";
}

std::string equals(const CardTreeNode& node) {
  return sql("  ", codeColumn(node.query), "='", node.code, "' ");
}

CardTreeNode nodeOf(const Recordset& row, CardQuery query) {
  return {query, row.TextOrEmpty("sNum"), row.TextOrEmpty("sName"),
          CLng(row.Fields("lChilds").numberOrZero())};
}

}  // namespace

std::string_view cardQueryName(CardQuery query) {
  switch (query) {
    case CardQuery::ByDepartment:
      return "按部门查询";
    case CardQuery::ByCategory:
      return "按类别查询";
    case CardQuery::Custom:
      break;
  }
  return "自定义查询";
}

std::string CardTreeNode::key() const {
  return isRoot() ? "R" + std::string(kRootCode) : "D" + code;
}

std::string CardTreeNode::text() const {
  if (query == CardQuery::Custom) return name;
  return sql(code, isRoot() ? "" : " ", name, "(", children, ")");
}

Foresight foreseeCardTree(ClsBLLManageCards& cards, CardQuery query) {
  return query == CardQuery::Custom ? Foresight() : cards.foreseeTree(rootName(query), cardQueryName(query));
}

CardTreeNode cardTreeRoot(ClsBLLManageCards& cards, CardQuery query) {
  CardTreeNode root{query, {}, std::string(cardQueryName(query)), 0};
  const Recordset row = cards.rstGetDepartMent(rootName(query));
  if (!row.isOpen() || row.Eof()) return root;
  root = nodeOf(row, query);
  root.code.clear();
  return root;
}

std::optional<std::vector<CardTreeNode>> cardTreeChildren(ClsBLLManageCards& cards,
                                                          const CardTreeNode& parent) {
  std::vector<CardTreeNode> children;
  if (parent.query == CardQuery::Custom) return children;
  Recordset rows = cards.rstGetDepartMent(cardQueryName(parent.query), parent.code);
  if (!rows.isOpen()) return std::nullopt;
  for (; !rows.Eof(); rows.MoveNext()) children.push_back(nodeOf(rows, parent.query));
  return children;
}

std::optional<std::string> cardTreeCondition(ClsBLLManageCards& cards, const CardTreeNode& node) {
  if (node.isRoot()) return std::string();
  if (node.children == 0) return equals(node);
  const auto children = cardTreeChildren(cards, node);
  if (!children) return std::nullopt;
  std::string condition = "(";
  for (const CardTreeNode& child : *children) condition += equals(child) + " or  ";
  return condition + " 1<>1 )";
}

}  // namespace zelkor
