#include "store/dialect/printing/RowOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {

using bound::Node;
using bound::OrderKey;
using bound::Select;

namespace {

constexpr const char* kRowsName = "zk_rows";
constexpr const char* kPlaceName = "zk_place";
constexpr const char* kPartName = "zk_part";

Node columnOf(const std::string& table, std::string name, bound::ValueType type = {}) {
  return {bound::Column{table, std::move(name), {}, {}, false}, type};
}

OrderKey keyOf(Node expr, bool descending, bool present) {
  return {std::move(expr), descending, std::nullopt, present};
}

bool latestFirst(const Select& select) {
  return !select.orderBy.empty() && select.orderBy.back().descending;
}

bool isJoin(const bound::Source& source) {
  return std::holds_alternative<Box<bound::Join>>(source);
}

void addPlaces(const bound::Source& source, bool nestedRows, std::vector<Node>& places) {
  if (const auto* table = std::get_if<bound::Table>(&source)) {
    places.push_back({bound::RowKey{table->qualifier()}, {}});
  } else if (const auto* derived = std::get_if<bound::Derived>(&source)) {
    places.push_back(columnOf(derived->alias, kPlaceName));
  } else {
    const bound::Join& join = *std::get<Box<bound::Join>>(source);
    addPlaces(join.first, nestedRows, places);
    if (nestedRows || !isJoin(join.second)) addPlaces(join.second, nestedRows, places);
  }
}

Select numbered(Select select, const EngineOrder& engine);

void numberSource(bound::Source& source, const EngineOrder& engine) {
  if (auto* derived = std::get_if<bound::Derived>(&source)) {
    Select& rows = *derived->select;
    if (rows.items.back().name != kPlaceName) rows = numbered(std::move(rows), engine);
  } else if (auto* join = std::get_if<Box<bound::Join>>(&source)) {
    numberSource((*join)->first, engine);
    numberSource((*join)->second, engine);
  }
}

/// The output columns and the order of other rows, which are in FROM with numbered columns.
Select around(Select& rows) {
  Select outer;
  for (std::size_t i = 0; i < rows.items.size(); ++i) {
    std::string name = std::exchange(rows.items[i].name, columnName(i));
    outer.items.push_back({columnOf(kRowsName, columnName(i), rows.items[i].expr.type), std::move(name)});
  }
  for (const OrderKey& key : std::exchange(rows.orderBy, {}))
    outer.orderBy.push_back({outer.items[*key.item].expr, key.descending, key.item});
  return outer;
}

// Of rows that are alike the one counts that comes first.
Select grouped(Select rows, const EngineOrder& engine) {
  Select outer = around(rows);
  rows.distinct = false;
  outer.top = std::exchange(rows.top, std::nullopt);
  outer.percent = std::exchange(rows.percent, false);
  outer.aggregated = true;
  for (const bound::Item& item : outer.items) outer.groupBy.push_back(item.expr);
  const bool latest = latestFirst(outer);
  const SqlFunction& outermost = functionCalled(latest ? "max" : "min");
  const Node place = columnOf(kRowsName, kPlaceName);
  outer.ties.push_back(keyOf({bound::Aggregate{&outermost, {place}}, {}}, latest, true));
  outer.from.emplace_back(bound::Derived{numbered(std::move(rows), engine), kRowsName});
  return outer;
}

void numberPart(Select& part, int number, const EngineOrder& engine) {
  part = numbered(std::move(part), engine);
  part.items.push_back({{bound::IntegerValue{number}, {}}, kPartName});
}

Select united(Select rows, const EngineOrder& engine) {
  Select outer = around(rows);
  if (std::ranges::all_of(rows.unions, &bound::Part::all)) {
    std::vector<bound::Part> parts = std::exchange(rows.unions, {});
    int number = 0;
    numberPart(rows, number, engine);
    for (bound::Part& part : parts) numberPart(part.select, ++number, engine);
    rows.unions = std::move(parts);
    for (const char* name : {kPartName, kPlaceName})
      outer.ties.push_back(keyOf(columnOf(kRowsName, name), latestFirst(outer), true));
  } else {
    for (const bound::Item& item : outer.items) outer.ties.push_back(keyOf(item.expr, false, false));
  }
  outer.from.emplace_back(bound::Derived{std::move(rows), kRowsName});
  return outer;
}

/// Rows that tell their order: DISTINCT and UNION have become SELECTs of all their rows.
Select telling(Select select, const EngineOrder& engine) {
  if (!select.unions.empty()) return united(std::move(select), engine);
  if (select.distinct) return grouped(std::move(select), engine);
  if (select.ties.empty())
    for (bound::Source& source : select.from) numberSource(source, engine);
  return select;
}

std::vector<OrderKey> completeOrder(const Select& select, const EngineOrder& engine) {
  std::vector<OrderKey> keys = select.orderBy;
  std::ranges::move(tiesOf(select, engine), std::back_inserter(keys));
  return keys;
}

void numberRows(Select& select, const EngineOrder& engine) {
  std::vector<OrderKey> keys = completeOrder(select, engine);
  const bool isNumber = keys.size() == 1 && select.orderBy.empty() && !select.aggregated;
  Node place = isNumber ? std::move(keys.front().expr) : Node{bound::RowNumber{std::move(keys)}, {}};
  select.items.push_back({std::move(place), kPlaceName});
}

/// The rows with a further last column that tells their order.
Select numbered(Select select, const EngineOrder& engine) {
  select = telling(std::move(select), engine);
  numberRows(select, engine);
  return select;
}

}  // namespace

std::string columnName(std::size_t index) {
  return "zk_" + std::to_string(index + 1);
}

bool isRanked(const Select& select) {
  return select.unions.empty() && select.top && (select.percent || !select.orderBy.empty());
}

std::vector<OrderKey> orderOfSources(const std::vector<bound::Source>& from, bool descending,
                                     const EngineOrder& engine) {
  std::vector<Node> places;
  for (const bound::Source& source : from) addPlaces(source, engine.keysNestedRows, places);
  std::vector<OrderKey> keys;
  // The first table has a row for every one of the result.
  for (Node& place : places) keys.push_back(keyOf(std::move(place), descending, keys.empty()));
  return keys;
}

std::vector<OrderKey> tiesOf(const Select& select, const EngineOrder& engine) {
  if (!select.ties.empty()) return select.ties;
  if (!select.aggregated) return orderOfSources(select.from, latestFirst(select), engine);
  std::vector<OrderKey> keys;
  for (const Node& key : select.groupBy) keys.push_back(keyOf(key, false, false));
  return keys;
}

bool comesInOrder(const Select& select, const EngineOrder& engine) {
  if (!select.orderBy.empty() || !select.unions.empty()) return false;
  if (select.aggregated || select.from.empty()) return select.groupBy.empty();
  return !engine.movesRows && select.from.size() == 1 &&
         std::holds_alternative<bound::Table>(select.from.front());
}

Select withOrder(Select select, bool ordered, const EngineOrder& engine) {
  const bool cut = select.unions.empty() && select.top && select.orderBy.empty();
  const bool decides = cut || (ordered && !comesInOrder(select, engine));
  if (!decides && !select.inOrder && !(select.distinct && select.top)) return select;
  select = telling(std::move(select), engine);
  if (!decides) return select;
  const bool ranked = isRanked(select);
  if (ranked && ordered) numberRows(select, engine);
  if (!ranked || cut) select.orderBy = completeOrder(select, engine);
  return select;
}

}  // namespace zelkor::dialect
