#include "store/dialect/printing/EmitPostgreSql.h"

#include <algorithm>

#include "store/dialect/printing/ColumnTypes.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

constexpr int operandStrength = 9;

bool isWhole(const Node& node) {
  const ColumnType type = node.type.type;
  return type == ColumnType::Short || type == ColumnType::Long || type == ColumnType::Counter;
}

}  // namespace

// Rows have no lasting address of their own, so every table carries a key column.
void PostgreSqlEmitter::rowKey(std::string_view qualifier) {
  if (!qualifier.empty()) name(qualifier).text(".");
  name("zk_row");
}

void PostgreSqlEmitter::rowKeyParameter(std::size_t number) {
  slot(number);
  text("::bigint");
}

void PostgreSqlEmitter::endOutermost(const bound::Select& select) {
  if (!select.top) return;
  if (select.orderBy.empty()) {
    text(" LIMIT ").text(std::to_string(*select.top));
  } else {
    text(" FETCH FIRST ").text(std::to_string(*select.top)).text(" ROWS WITH TIES");
  }
}

// The narrow types would overflow where the dialect goes on.
void PostgreSqlEmitter::binary(const bound::Binary& node, int precedence) {
  using enum bound::BinaryKind;
  const bool reckons = node.kind == Add || node.kind == Subtract || node.kind == Multiply;
  if (!reckons || !isWhole(*node.left) || !isWhole(*node.right)) return Emitter::binary(node, precedence);
  const int own = precedenceOf(node.kind);
  if (precedence > own) text("(");
  expr(*node.left, operandStrength);
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
  for (const std::string& qualifier : qualifiersOf(update.from)) {
    if (qualifier == update.target.qualifier()) continue;
    text(", ");
    rowKey(qualifier);
    direction(true);
  }
}

// Quoted names are case-sensitive; folding makes every spelling of the dialect meet the same object.
std::string PostgreSqlEmitter::identifier(std::string_view name) const {
  std::string folded(name);
  for (char& c : folded)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return folded;
}

void PostgreSqlEmitter::slot(std::size_t number) {
  text("$").text(std::to_string(number));
}

void PostgreSqlEmitter::cast(ColumnType type) {
  text("::").text(postgreSqlType(type));
}

// The type citext compares and orders case-blind.
void PostgreSqlEmitter::caseBlind(const Node& operand) {
  expr(operand, operandStrength);
  text("::citext");
}

// Conditions are a type of their own.
void PostgreSqlEmitter::conditionAsValue(const Node& operand) {
  text("-(");
  value(operand);
  text(")::integer");
}

void PostgreSqlEmitter::quantified(const bound::Quantified& node) {
  text("(");
  expr(*node.value, operandStrength);
  text(signOf(node.kind)).text(node.all ? "ALL " : "ANY ");
  subselect(*node.select);
  text(")");
}

// Numbers of fixed point are added exactly here, and the first row is found through an array.
void PostgreSqlEmitter::aggregate(const bound::Aggregate& node) {
  if (node.name == "zk_first" || node.name == "zk_last") {
    text("(array_agg(");
    list(node.arguments);
    text(node.name == "zk_first" ? "))[1]" : "))[count(*)]");
    return;
  }
  bound::Aggregate plain = node;
  if (node.name == "zk_sum_currency") plain.name = "sum";
  if (node.name == "zk_avg_currency") plain.name = "avg";
  Emitter::aggregate(plain);
}

// A cast would fail for a text that is no number, and so would the index over it.
void PostgreSqlEmitter::numberCast(const bound::NumberOfText& node) {
  text("zk_digits(");
  value(Node{node.column, {}});
  text(")");
}

// Null comes first in the dialect's order; here it would come last.
void PostgreSqlEmitter::direction(bool descending) {
  text(descending ? " DESC NULLS LAST" : " NULLS FIRST");
}

void PostgreSqlEmitter::topWithTies(const bound::Select& select, bool named) {
  core(select, named);
  tail(select);
  orderBy(select);
  endOutermost(select);
}

std::string PostgreSqlEmitter::declaredType(const ColumnInfo& column) const {
  std::string declared = columnType(column, EngineKind::PostgreSql);
  if (column.type == ColumnType::Counter) declared += " UNIQUE";
  if (column.type == ColumnType::Boolean) declared += " DEFAULT 0";
  return declared;
}

void PostgreSqlEmitter::hiddenColumns() {
  text(", \"zk_row\" bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY");
}

// Over citext the function of that name replaces without regard to case.
void PostgreSqlEmitter::callName(std::string_view name) {
  text(name == "replace" ? "zk_replace" : name);
}

// A comma binds weaker than JOIN here, so that the condition of a join would not see the tables before it.
std::string_view PostgreSqlEmitter::betweenSources(const std::vector<bound::Source>& sources) const {
  const bool joins = std::any_of(sources.begin(), sources.end(), [](const bound::Source& source) {
    return std::holds_alternative<Box<bound::Join>>(source);
  });
  return joins ? " CROSS JOIN " : ", ";
}

namespace {

std::string textConstant(std::string_view text) {
  std::string constant = "'";
  for (const char c : text) {
    if (c == '\'') constant += '\'';
    constant += c;
  }
  return constant + "'";
}

}  // namespace

std::string_view directionInIndex(bool descending, EngineKind engine) {
  if (engine == EngineKind::Sqlite) return descending ? " DESC" : "";
  return descending ? " DESC NULLS LAST" : " NULLS FIRST";
}

std::string typedParameter(std::size_t number, ColumnType type, EngineKind engine) {
  const std::string place = std::to_string(number);
  if (engine == EngineKind::Sqlite) return "?" + place;
  return "$" + place + "::" + std::string(postgreSqlType(type));
}

std::optional<std::string> describingStatement(std::string_view table, const std::vector<ColumnInfo>& columns,
                                               EngineKind engine) {
  if (engine == EngineKind::Sqlite) return std::nullopt;
  std::string list;
  for (const ColumnInfo& column : columns)
    list += (list.empty() ? "" : ", ") + textConstant(column.name + ' ' + typeWord(column));
  return "SELECT zk_describe(" + textConstant(table) + ", ARRAY[" + list + "]::text[])";
}

}  // namespace zelkor::dialect
