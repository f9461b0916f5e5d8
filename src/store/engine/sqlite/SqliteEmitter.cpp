#include "store/engine/sqlite/SqliteEmitter.h"

namespace zelkor::dialect {

using bound::Node;

// Rows come in the wanted order and are read one by one: the reader stops after the ties of the last row.
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

// Numbers and texts that depend on no row are ordered once, and an index finds what lies between them.
void SqliteEmitter::bounds(const bound::Between& test) {
  const char* call = "min(";
  for (const char* behind : {" AND ", ""}) {
    text(call);
    boundOf(*test.low);
    text(", ");
    boundOf(*test.high);
    text(")").text(behind);
    call = "max(";
  }
}

void SqliteEmitter::boundOf(const Node& node) {
  const bool literal = std::holds_alternative<bound::Parameter>(node.node);
  if (literal && node.type.family == bound::Family::Text) return caseBlind(node);
  expr(node, Whole);
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

// LIMIT would cut through rows that are alike.
void SqliteEmitter::topWithTies(const bound::Select& select, bool named, bool ordered) {
  ranked(select, named, ordered);
}

}  // namespace zelkor::dialect
