#include "store/engine/postgresql/PostgreSqlEmitter.h"

#include <algorithm>

#include "store/dialect/binding/functions/ServerDefinitions.h"
#include "store/engine/postgresql/PostgreSqlWords.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

bool isWhole(const Node& node) {
  const ColumnType type = node.type.type;
  return type == ColumnType::Short || type == ColumnType::Long || type == ColumnType::Counter;
}

}  // namespace

void PostgreSqlEmitter::firstRows(const bound::Select& select) {
  if (!select.top) return;
  if (select.orderBy.empty()) {
    text(" LIMIT ").text(std::to_string(*select.top));
  } else {
    text(" FETCH FIRST ").text(std::to_string(*select.top)).text(" ROWS WITH TIES");
  }
}

// The order that cuts off the rows must not separate ties: the few that are left are ordered once more.
void PostgreSqlEmitter::endOutermost(const bound::Select& select, std::size_t rowKeys) {
  firstRows(select);
  if (!select.top || select.orderBy.empty() || rowKeys == 0) return;
  out_.insert(0, "SELECT * FROM (");
  text(") AS \"zk_top\"");
  std::string_view separator = " ORDER BY ";
  for (std::size_t i = 0; i < select.orderBy.size(); ++i) {
    text(separator).text(std::to_string(rowKeys + i + 1));
    direction(select.orderBy[i].descending);
    separator = ", ";
  }
  for (std::size_t i = 0; i < rowKeys; ++i) {
    text(", ").text(std::to_string(i + 1));
    keyDirection({{}, select.orderBy.back().descending, {}, i == 0});
  }
}

// The narrow types would overflow where the dialect goes on.
void PostgreSqlEmitter::binary(const bound::Binary& node, int precedence) {
  using enum bound::BinaryKind;
  const bool reckons = node.kind == Add || node.kind == Subtract || node.kind == Multiply;
  if (!reckons || !isWhole(*node.left) || !isWhole(*node.right)) return Emitter::binary(node, precedence);
  const int own = precedenceOf(node.kind);
  if (precedence > own) text("(");
  expr(*node.left, Operand);
  text("::bigint").text(signOf(node.kind));
  expr(*node.right, own + 1);
  if (precedence > own) text(")");
}

void PostgreSqlEmitter::negative(const Node& operand) {
  Emitter::negative(operand);
  if (isWhole(operand)) text("::bigint");
}

void PostgreSqlEmitter::beforeLastMatch(const bound::Table& target) {
  text("DISTINCT ON (");
  rowKey(target.qualifier());
  text(") ");
}

void PostgreSqlEmitter::behindLastMatch(const bound::Update& update) {
  text(" ORDER BY ");
  rowKey(update.target.qualifier());
  for (const bound::OrderKey& key : orderOfSources(update.from, true, {true, true})) {
    const auto* row = std::get_if<bound::RowKey>(&key.expr.node);
    if (!row || row->qualifier == update.target.qualifier()) continue;
    text(", ");
    rowKey(row->qualifier);
    direction(true);
  }
}

void PostgreSqlEmitter::slot(std::size_t number) {
  if (deferred_) text("(SELECT ");
  Emitter::slot(number);
}

void PostgreSqlEmitter::cast(ColumnType type) {
  text("::").text(postgreSqlType(type));
  if (deferred_) text(")");
}

// What is constant is computed when a statement is planned, also where it is not wanted, and may fail there:
// its parameters are hidden from the planner. Only names are in quotes.
void PostgreSqlEmitter::branch(const Node& node) {
  const std::size_t start = out_.size();
  expr(node, 0);
  const bool constant = out_.find('"', start) == std::string::npos;
  if (deferred_ || !constant || std::holds_alternative<bound::Parameter>(node.node)) return;
  out_.resize(start);
  deferred_ = true;
  expr(node, 0);
  deferred_ = false;
}

// The type citext compares and orders case-blind.
void PostgreSqlEmitter::caseBlind(const Node& operand) {
  expr(operand, Operand);
  text("::citext");
}

// Conditions are a type of their own.
void PostgreSqlEmitter::conditionAsValue(const Node& operand) {
  text("-(");
  value(operand);
  text(")::integer");
}

void PostgreSqlEmitter::bounds(const bound::Between& test) {
  text("SYMMETRIC ");
  expr(*test.low, Sum);
  text(" AND ");
  expr(*test.high, Sum);
}

void PostgreSqlEmitter::quantified(const bound::Quantified& node) {
  text("(");
  expr(*node.value, Operand);
  text(signOf(node.kind)).text(node.all ? "ALL " : "ANY ");
  subselect(*node.select);
  text(")");
}

void PostgreSqlEmitter::aggregate(const bound::Aggregate& node) {
  for (const char c : node.function->onServer) {
    if (c == '!') {
      text(node.distinct ? "DISTINCT " : "");
    } else if (c == '^') {
      orderKeys(gatheredOrder(), " ORDER BY ");
    } else if (c != '?') {
      out_ += c;
    } else if (node.arguments.empty()) {
      text("*");
    } else {
      value(node.arguments.front());
    }
  }
}

// A cast would fail for a text that is no number, and so would the index over it.
void PostgreSqlEmitter::numberCast(const bound::NumberOfText& node) {
  text("zk_digits(");
  value(Node{node.column, {}});
  text(")");
}

void PostgreSqlEmitter::topWithTies(const bound::Select& select, bool named, bool ordered) {
  if (ordered) return ranked(select, named, ordered);
  core(select, named);
  tail(select);
  orderBy(select);
  firstRows(select);
}

std::string PostgreSqlEmitter::declaredType(const ColumnInfo& column) const {
  return Emitter::declaredType(column) + (column.type == ColumnType::Counter ? " UNIQUE" : "");
}

void PostgreSqlEmitter::callName(const SqlFunction& function) {
  text(serverName(function));
}

// A comma binds weaker than JOIN here, so that the condition of a join would not see the tables before it.
std::string_view PostgreSqlEmitter::betweenSources(const std::vector<bound::Source>& sources) const {
  const bool joins = std::any_of(sources.begin(), sources.end(), [](const bound::Source& source) {
    return std::holds_alternative<Box<bound::Join>>(source);
  });
  return joins ? " CROSS JOIN " : ", ";
}

}  // namespace zelkor::dialect
