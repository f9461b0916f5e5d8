#include "store/dialect/printing/Emit.h"

#include <set>
#include <utility>

namespace zelkor::dialect {

void Emitter::rowKey(std::string_view qualifier) {
  if (!qualifier.empty()) name(qualifier).text(".");
  text(words_.rowKey());
}

void Emitter::source(const bound::Source& source) {
  if (const auto* table = std::get_if<bound::Table>(&source)) {
    name(table->name);
    if (!table->alias.empty()) text(" AS ").name(table->alias);
  } else if (const auto* derived = std::get_if<bound::Derived>(&source)) {
    text("(");
    select(*derived->select, true);
    text(") AS ").name(derived->alias);
  } else {
    const bound::Join& join = *std::get<Box<bound::Join>>(source);
    this->source(join.first);
    text(join.left ? " LEFT JOIN " : " JOIN ");
    const bool nested = std::holds_alternative<Box<bound::Join>>(join.second);
    if (nested) text("(");
    this->source(join.second);
    if (nested) text(")");
    text(" ON ");
    value(join.on);
  }
}

std::vector<bound::OrderKey> Emitter::gatheredOrder() const {
  return gathered_ ? orderOfSources(gathered_->from, false, order()) : std::vector<bound::OrderKey>();
}

void Emitter::fromClause(const std::vector<bound::Source>& sources) {
  std::string_view separator = " FROM ";
  for (const bound::Source& one : sources) {
    text(separator);
    source(one);
    separator = betweenSources(sources);
  }
}

void Emitter::tail(const bound::Select& select, std::string_view also) {
  fromClause(select.from);
  if (select.where) {
    text(" WHERE ");
    expr(*select.where, also.empty() ? 0 : precedenceOf(bound::BinaryKind::And));
  }
  if (!also.empty()) text(select.where ? " AND (" : " WHERE (").text(also).text(")");
  if (!select.groupBy.empty()) {
    text(" GROUP BY ");
    list(select.groupBy);
  }
  if (select.having) {
    text(" HAVING ");
    value(*select.having);
  }
}

void Emitter::core(const bound::Select& select, bool named, bool numbered) {
  text(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  std::size_t number = 0;
  for (const bound::Item& item : select.items) {
    if (number++ > 0) text(", ");
    value(item.expr);
    if (numbered) {
      text(" AS ").name(columnName(number - 1));
    } else if (named) {
      text(" AS ").name(item.name);
    }
  }
}

void Emitter::keyDirection(const bound::OrderKey& key) {
  if (!key.present) return direction(key.descending);
  if (key.descending) text(" DESC");
}

void Emitter::orderKeys(const std::vector<bound::OrderKey>& keys, std::string_view before) {
  std::set<std::string> printed;
  for (const bound::OrderKey& key : keys) {
    const std::size_t start = out_.size();
    text(before);
    value(key.expr);
    if (printed.insert(out_.substr(start + before.size())).second) {
      keyDirection(key);
      before = ", ";
    } else {
      out_.resize(start);
    }
  }
}

void Emitter::orderBy(const bound::Select& select) {
  if (select.orderBy.empty()) return;
  text(" ");
  if (select.unions.empty()) return orderKeys(select.orderBy);
  // The rows of united queries are ordered by places of their columns.
  std::string_view separator = "ORDER BY ";
  for (const bound::OrderKey& key : select.orderBy) {
    text(separator).text(std::to_string(*key.item + 1));
    direction(key.descending);
    separator = ", ";
  }
}

// A part that takes the first rows is in a query of its own: its order and limit must not reach the
// whole.
void Emitter::part(const bound::Select& select, bool named) {
  if (!select.top) return this->select(select, named);
  text("SELECT * FROM (");
  this->select(select, true);
  text(") AS \"zk_part\"");
}

void Emitter::compound(const bound::Select& whole, bool named) {
  bound::Select first = whole;
  first.unions.clear();
  first.orderBy.clear();
  part(first, named);
  for (const bound::Part& other : whole.unions) {
    text(other.all ? " UNION ALL " : " UNION ");
    part(other.select, false);
  }
  orderBy(whole);
}

// Joined rows come as an engine nests its tables, a changed row may move to another place in its table, and
// the first rows of a table must not depend on the index that finds them.
void Emitter::tableOrder(const bound::Select& select) {
  const bool ordered = !select.orderBy.empty();
  if (ordered && select.top && movesRows())
    return;  // the ties of the TOP are defined by the order keys alone
  if (!ordered && !select.top && comesInOrder(select, order())) return;
  orderKeys(tiesOf(select, order()), ordered ? ", " : " ORDER BY ");
}

// A window ranks the rows, equal ones alike, and counts them where a part of them is wanted.
void Emitter::ranked(const bound::Select& select, bool named, bool ordered) {
  const std::size_t columns = select.items.size() - (ordered ? 1 : 0);
  text("SELECT ");
  for (std::size_t i = 0; i < columns; ++i) {
    if (i > 0) text(", ");
    name(columnName(i));
    if (named) text(" AS ").name(select.items[i].name);
  }
  text(" FROM (");
  core(select, false, true);
  text(", RANK() OVER (");
  orderKeys(select.orderBy);
  text(") AS \"zk_rank\"");
  if (select.percent) text(", COUNT(*) OVER () AS \"zk_count\"");
  tail(select);
  text(") AS \"zk_ranked\" WHERE ");
  const std::string top = std::to_string(*select.top);
  if (select.percent) {
    // A part of a row counts as a row.
    text("\"zk_rank\" * 100 < \"zk_count\" * ").text(top).text(" + 100");
  } else {
    text("\"zk_rank\" <= ").text(top);
  }
  if (ordered) text(" ORDER BY ").name(columnName(columns));
}

void Emitter::select(const bound::Select& wanted, bool named, bool ordered) {
  const bool takesFirst = isRanked(wanted);
  const bound::Select select = withOrder(wanted, ordered, order());
  const bound::Select* const around = std::exchange(gathered_, &select);
  if (!select.unions.empty()) {
    compound(select, named);
  } else if (select.percent) {
    ranked(select, named, ordered);
  } else if (takesFirst) {
    topWithTies(select, named, ordered);
  } else {
    core(select, named);
    tail(select);
    orderBy(select);
    if (select.top) text(" LIMIT ").text(std::to_string(*select.top));
  }
  gathered_ = around;
}

}  // namespace zelkor::dialect
