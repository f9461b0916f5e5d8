#include "store/dialect/printing/Emit.h"

#include <algorithm>
#include <utility>

#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {

namespace {

void addTables(const bound::Source& source, std::vector<std::string>& qualifiers) {
  if (const auto* table = std::get_if<bound::Table>(&source)) {
    qualifiers.push_back(table->qualifier());
  } else if (const auto* join = std::get_if<Box<bound::Join>>(&source)) {
    addTables((*join)->first, qualifiers);
    addTables((*join)->second, qualifiers);
  }
}

std::string tieName(std::size_t index) {
  return "zk_row_" + std::to_string(index + 1);
}

std::string placeName(std::size_t index) {
  return "zk_" + std::to_string(index + 1);
}

bool isFirstOrLast(const bound::Item& item) {
  const auto* aggregate = std::get_if<bound::Aggregate>(&item.expr.node);
  return aggregate != nullptr &&
         (aggregate->function->name == "First" || aggregate->function->name == "Last");
}

/// Whether the order matters in which the only source gives its rows.
bool takesRowsAsTheyCome(const bound::Select& select) {
  if (select.from.size() != 1 || !select.orderBy.empty() || select.distinct || !select.unions.empty())
    return false;
  const bool one = !select.aggregated && select.groupBy.empty();
  return one || std::ranges::any_of(select.items, isFirstOrLast);
}

}  // namespace

void Emitter::rowKey(std::string_view qualifier) {
  if (!qualifier.empty()) name(qualifier).text(".");
  text(words_.rowKey());
}

void Emitter::source(const bound::Source& source) {
  if (const auto* table = std::get_if<bound::Table>(&source)) {
    name(table->name);
    if (!table->alias.empty()) text(" AS ").name(table->alias);
  } else if (const auto* derived = std::get_if<bound::Derived>(&source)) {
    this->derived(*derived);
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

// The rows of a derived table that is alone come as they were added, also to First and Last.
void Emitter::derived(const bound::Derived& table) {
  const bool ordered = movesRows() && gathered_ != nullptr && takesRowsAsTheyCome(*gathered_);
  text("(");
  select(*table.select, true);
  if (ordered && !table.select->top) tableOrder(*table.select);
  text(") AS ").name(table.alias);
}

void Emitter::gatheredOrder() {
  if (gathered_ == nullptr) return;
  std::string_view separator = " ORDER BY ";
  for (const std::string& qualifier : qualifiersOf(gathered_->from)) {
    text(separator);
    rowKey(qualifier);
    separator = ", ";
  }
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

void Emitter::core(const bound::Select& select, bool named, std::string_view namePrefix) {
  text(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  std::size_t number = 0;
  for (const bound::Item& item : select.items) {
    if (number++ > 0) text(", ");
    value(item.expr);
    if (!namePrefix.empty()) {
      text(" AS ").name(std::string(namePrefix) + std::to_string(number));
    } else if (named) {
      text(" AS ").name(item.name);
    }
  }
}

void Emitter::orderKeys(const std::vector<bound::OrderKey>& keys) {
  std::string_view separator = "ORDER BY ";
  for (const bound::OrderKey& key : keys) {
    text(separator);
    value(key.expr);
    direction(key.descending);
    separator = ", ";
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
  const bool sorted = std::ranges::any_of(whole.unions, [](const bound::Part& one) { return !one.all; });
  if (!sorted || !whole.orderBy.empty() || !movesRows()) return;
  std::string_view separator = " ORDER BY ";
  for (std::size_t i = 1; i <= whole.items.size(); ++i) {
    text(separator).text(std::to_string(i));
    direction(false);
    separator = ", ";
  }
}

std::vector<std::string> Emitter::qualifiersOf(const std::vector<bound::Source>& sources) {
  std::vector<std::string> qualifiers;
  for (const bound::Source& source : sources) addTables(source, qualifiers);
  return qualifiers;
}

// Groups come in the order of their keys, Null first.
void Emitter::groupOrder(const bound::Select& select) {
  if (!movesRows()) return;
  std::string_view separator = select.orderBy.empty() ? " ORDER BY " : ", ";
  for (const bound::Node& key : select.groupBy) {
    text(separator);
    value(key);
    direction(false);
    separator = ", ";
  }
}

void Emitter::rowKeyDirection(bool descending, bool first) {
  if (!first) return direction(descending);
  if (descending) text(" DESC");  // the first table has a row for every one of the result
}

bool Emitter::ordersTies(const bound::Select& select) const {
  return (storesRows_ || select.percent) && !select.distinct && !select.aggregated && select.groupBy.empty();
}

void Emitter::tieColumns(const bound::Select& select) {
  const std::vector<std::string> qualifiers = qualifiersOf(select.from);
  for (std::size_t i = 0; i < qualifiers.size(); ++i) {
    text(", ");
    rowKey(qualifiers[i]);
    text(" AS ").name(tieName(i));
  }
}

void Emitter::tieOrder(const bound::Select& select) {
  for (std::size_t i = 0; i < qualifiersOf(select.from).size(); ++i) {
    text(", ").name(tieName(i));
    rowKeyDirection(latestFirst(select), i == 0);
  }
}

bool Emitter::latestFirst(const bound::Select& select) {
  return !select.orderBy.empty() && select.orderBy.back().descending;
}

// Joined rows come as an engine nests its tables, and a changed row may move to another place in its table:
// the row keys give the order in which rows were added. It is that of rows which are alike in the ORDER BY,
// too, the latest first where that descends.
void Emitter::tableOrder(const bound::Select& select) {
  const bool ordered = !select.orderBy.empty();
  if (select.distinct || !select.unions.empty()) return;
  if (ordered && select.top && movesRows())
    return;  // the ties of the TOP are defined by the order keys alone
  if (select.aggregated || !select.groupBy.empty()) return groupOrder(select);
  const std::vector<std::string> qualifiers = qualifiersOf(select.from);
  if (qualifiers.size() == 1 && !ordered && !movesRows()) return;
  std::string_view separator = ordered ? ", " : " ORDER BY ";
  for (const std::string& qualifier : qualifiers) {
    text(separator);
    rowKey(qualifier);
    rowKeyDirection(latestFirst(select), &qualifier == &qualifiers.front());
    separator = ", ";
  }
}

// A window ranks the rows, equal ones alike, and counts them where a part of them is wanted.
void Emitter::ranked(const bound::Select& select, bool named) {
  text("SELECT ");
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    if (i > 0) text(", ");
    name(placeName(i));
    if (named) text(" AS ").name(select.items[i].name);
  }
  text(" FROM (");
  if (select.distinct) {
    text("SELECT *");
    rank(select, true);
    text(" FROM (");
    core(select, false, "zk_");
    tail(select);
    text(select.percent ? ") AS \"zk_rows\"" : ")");
  } else {
    core(select, false, "zk_");
    rank(select, false);
    if (ordersTies(select)) tieColumns(select);
    tail(select);
  }
  const std::string top = std::to_string(*select.top);
  if (select.percent) {
    // A part of a row counts as a row.
    text(") AS \"zk_ranked\" WHERE \"zk_rank\" * 100 < \"zk_count\" * ").text(top).text(" + 100");
  } else {
    text(") WHERE \"zk_rank\" <= ").text(top);
  }
  text(" ORDER BY \"zk_rank\"");
  if (ordersTies(select)) tieOrder(select);
}

void Emitter::rank(const bound::Select& select, bool byPlaces) {
  if (select.orderBy.empty()) {
    text(", ROW_NUMBER() OVER (");
    if (!byPlaces && !select.aggregated && select.groupBy.empty()) gatheredOrder();
  } else {
    text(", RANK() OVER (");
  }
  if (!byPlaces) {
    orderKeys(select.orderBy);
  } else {
    std::string_view separator = "ORDER BY ";
    for (const bound::OrderKey& key : select.orderBy) {
      text(separator).name(placeName(*key.item));
      direction(key.descending);
      separator = ", ";
    }
  }
  text(") AS \"zk_rank\"");
  if (select.percent) text(", COUNT(*) OVER () AS \"zk_count\"");
}

void Emitter::select(const bound::Select& select, bool named) {
  const bound::Select* const around = std::exchange(gathered_, &select);
  if (!select.unions.empty()) {
    compound(select, named);
  } else if (select.percent) {
    ranked(select, named);
  } else if (select.top && !select.orderBy.empty()) {
    topWithTies(select, named);
  } else {
    core(select, named);
    tail(select);
    orderBy(select);
    if (select.top) text(" LIMIT ").text(std::to_string(*select.top));
  }
  gathered_ = around;
}

}  // namespace zelkor::dialect
