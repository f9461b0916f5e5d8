#include "store/engine/sqlite/SqliteEmitter.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

std::string placeName(std::size_t index) {
  return "zk_" + std::to_string(index + 1);
}

}  // namespace

// Rows come in the wanted order and are read one by one: the reader stops behind the ties of the last row.
void SqliteEmitter::endOutermost(const bound::Select& select, std::size_t /*rowKeys*/) {
  if (select.top && select.orderBy.empty()) text(" LIMIT ").text(std::to_string(*select.top));
}

// Only columns carry the case-blind collation; expressions have to name it.
void SqliteEmitter::caseBlind(const Node& operand) {
  expr(operand, Operand);
  text(" COLLATE NOCASE");
}

// Conditions are the numbers 1 and 0 here.
void SqliteEmitter::conditionAsValue(const Node& operand) {
  text("-(");
  value(operand);
  text(")");
}

// There is no ALL and ANY: a row of the subquery is looked for that holds, or does not hold, the comparison.
void SqliteEmitter::quantified(const bound::Quantified& node) {
  text(node.all ? "NOT EXISTS (SELECT 1 FROM (" : "EXISTS (SELECT 1 FROM (");
  bound::Select select = *node.select;
  if (!select.items.empty()) select.items.front().name = "zk_value";
  this->select(select, true);
  text(") AS \"zk_any\" WHERE ");
  if (node.all) text("(");
  expr(*node.value, Operand);
  text(signOf(node.kind)).text("\"zk_any\".\"zk_value\"");
  if (node.all) text(") IS NOT TRUE");
  text(")");
}

// A window ranks the rows, equal ones alike, since LIMIT would cut through them.
void SqliteEmitter::topWithTies(const bound::Select& select, bool named) {
  text("SELECT ");
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    if (i > 0) text(", ");
    name(placeName(i));
    if (named) text(" AS ").name(select.items[i].name);
  }
  text(" FROM (");
  if (select.distinct) {
    text("SELECT *, RANK() OVER (");
    std::string_view separator = "ORDER BY ";
    for (const bound::OrderKey& key : select.orderBy) {
      text(separator).name(placeName(*key.item));
      direction(key.descending);
      separator = ", ";
    }
    text(") AS \"zk_rank\" FROM (");
    core(select, false, "zk_");
    tail(select);
    text(")");
  } else {
    core(select, false, "zk_");
    text(", RANK() OVER (");
    orderKeys(select.orderBy);
    text(") AS \"zk_rank\"");
    if (ordersTies(select)) tieColumns(select);
    tail(select);
  }
  text(") WHERE \"zk_rank\" <= ").text(std::to_string(*select.top)).text(" ORDER BY \"zk_rank\"");
  if (ordersTies(select)) tieOrder(select);
}

}  // namespace zelkor::dialect
