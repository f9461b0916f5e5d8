#include "store/dialect/binding/functions/SqlFunction.h"
#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {

using bound::BinaryKind;
using bound::Node;

namespace {

// An operand that binds weaker than its surroundings is put in parentheses.
class Parentheses {
 public:
  Parentheses(std::string& out, bool needed) : out_(out), needed_(needed) {
    if (needed_) out_ += '(';
  }
  Parentheses(const Parentheses&) = delete;
  Parentheses& operator=(const Parentheses&) = delete;
  ~Parentheses() {
    if (needed_) out_ += ')';
  }

 private:
  std::string& out_;
  bool needed_;
};

/// An engine reads a chain without parentheses as a tree as deep as the chain is long, and that has a limit.
constexpr std::size_t kLongestChain = 200;

/// How many expressions the operator joins there.
std::size_t chainLength(const Node& node, BinaryKind kind) {
  const auto* binary = std::get_if<bound::Binary>(&node.node);
  if (!binary || binary->kind != kind) return 1;
  return chainLength(*binary->left, kind) + chainLength(*binary->right, kind);
}

}  // namespace

int Emitter::precedenceOf(BinaryKind kind) {
  switch (kind) {
    case BinaryKind::Or:
      return Or;
    case BinaryKind::And:
      return And;
    case BinaryKind::Add:
    case BinaryKind::Subtract:
      return Sum;
    case BinaryKind::Multiply:
      return Product;
    case BinaryKind::Concatenate:
      return Concatenation;
    default:
      return Comparison;
  }
}

std::string_view Emitter::signOf(BinaryKind kind) {
  switch (kind) {
    case BinaryKind::Add:
      return " + ";
    case BinaryKind::Subtract:
      return " - ";
    case BinaryKind::Multiply:
      return " * ";
    case BinaryKind::Concatenate:
      return " || ";
    case BinaryKind::Equal:
      return " = ";
    case BinaryKind::NotEqual:
      return " <> ";
    case BinaryKind::Less:
      return " < ";
    case BinaryKind::LessEqual:
      return " <= ";
    case BinaryKind::Greater:
      return " > ";
    case BinaryKind::GreaterEqual:
      return " >= ";
    case BinaryKind::And:
      return " AND ";
    case BinaryKind::Or:
      return " OR ";
  }
  return {};
}

void Emitter::expr(const Node& node, int precedence) {
  std::visit([&](const auto& alternative) { this->node(alternative, precedence); }, node.node);
}

void Emitter::list(const std::vector<Node>& nodes) {
  bool first = true;
  for (const Node& node : nodes) {
    if (!first) out_ += ", ";
    first = false;
    expr(node, Whole);
  }
}

// Two minus signs in a row would begin a comment.
void Emitter::node(const bound::IntegerValue& value, int precedence) {
  const Parentheses parentheses(out_, value.value < 0 && precedence > Sign);
  out_ += std::to_string(value.value);
}

void Emitter::node(const bound::TextValue& value, int) {
  out_ += '\'';
  for (const char c : value.value) {
    if (c == '\'') out_ += '\'';
    out_ += c;
  }
  out_ += '\'';
}

void Emitter::node(const bound::Parameter& parameter, int) {
  const ParameterSlot& info = slots_[parameter.slot];
  slot(parameter.slot + 1);
  switch (info.bindAs) {
    case BindAs::Number:
      return cast(ColumnType::Double);
    case BindAs::Date:
      return cast(ColumnType::Date);
    case BindAs::Assigned:
      return cast(info.target);
    default:
      return cast(ColumnType::Text);
  }
}

void Emitter::node(const bound::Column& column, int) {
  if (!column.qualifier.empty()) name(column.qualifier).text(".");
  name(column.name);
}

void Emitter::node(const bound::NumberOfText& reading, int precedence) {
  if (fast_) return numberCast(reading);
  callName(*reading.function);
  out_ += '(';
  node(reading.column, precedence);
  out_ += ')';
}

void Emitter::numberCast(const bound::NumberOfText& node) {
  text("CAST(");
  value(Node{node.column, {}});
  text(" AS INTEGER)");
}

void Emitter::node(const bound::Unary& unary, int precedence) {
  switch (unary.kind) {
    case bound::UnaryKind::CaseBlind:
      return caseBlind(*unary.operand);
    case bound::UnaryKind::ConditionAsValue: {
      const Parentheses parentheses(out_, precedence > Sign);
      return conditionAsValue(*unary.operand);
    }
    case bound::UnaryKind::Negate: {
      const Parentheses parentheses(out_, precedence > Sign);
      out_ += '-';
      return negative(*unary.operand);
    }
    case bound::UnaryKind::Not: {
      const Parentheses parentheses(out_, precedence > Not);
      out_ += "NOT ";
      return expr(*unary.operand, Comparison);
    }
    case bound::UnaryKind::ValueAsCondition:
      break;
  }
  const Parentheses parentheses(out_, precedence > Comparison);
  expr(*unary.operand, Sum);
  out_ += " <> 0";
}

void Emitter::negative(const Node& operand) {
  expr(operand, Operand);
}

void Emitter::binary(const bound::Binary& node, int precedence) {
  const int own = precedenceOf(node.kind);
  const Parentheses parentheses(out_, precedence > own);
  const bool logical = own == Or || own == And;
  const bool chains = (logical && chainLength(*node.right, node.kind) <= kLongestChain) ||
                      node.kind == BinaryKind::Concatenate;
  expr(*node.left, own == Comparison ? own + 1 : own);
  out_ += signOf(node.kind);
  expr(*node.right, chains ? own : own + 1);
}

void Emitter::node(const bound::IsNull& test, int precedence) {
  const Parentheses parentheses(out_, precedence > Comparison);
  expr(*test.value, Sum);
  out_ += test.negated ? " IS NOT NULL" : " IS NULL";
}

void Emitter::node(const bound::Between& test, int precedence) {
  const Parentheses parentheses(out_, precedence > Comparison);
  expr(*test.value, Sum);
  out_ += test.negated ? " NOT BETWEEN " : " BETWEEN ";
  bounds(test);
}

void Emitter::node(const bound::InList& test, int precedence) {
  const Parentheses parentheses(out_, precedence > Comparison);
  expr(*test.value, Sum);
  out_ += test.negated ? " NOT IN (" : " IN (";
  list(test.items);
  out_ += ')';
}

void Emitter::node(const bound::InSelect& test, int precedence) {
  const Parentheses parentheses(out_, precedence > Comparison);
  expr(*test.value, Sum);
  out_ += test.negated ? " NOT IN " : " IN ";
  subselect(*test.select);
}

void Emitter::node(const bound::Exists& test, int) {
  out_ += "EXISTS ";
  subselect(*test.select);
}

void Emitter::node(const bound::ScalarSelect& node, int) {
  text("(");
  select(*node.select, false, true);
  text(")");
}

void Emitter::node(const bound::Call& call, int) {
  callName(*call.function);
  out_ += '(';
  list(call.arguments);
  out_ += ')';
}

void Emitter::callName(const SqlFunction& function) {
  out_ += function.called;
}

void Emitter::aggregate(const bound::Aggregate& node) {
  callName(*node.function);
  out_ += node.distinct ? "(DISTINCT " : "(";
  if (node.arguments.empty()) out_ += '*';
  list(node.arguments);
  if (node.function->gathersInOrder())
    for (const bound::OrderKey& key : gatheredOrder()) text(", ").value(key.expr);
  out_ += ')';
}

void Emitter::node(const bound::RowNumber& number, int) {
  text("ROW_NUMBER() OVER (");
  orderKeys(number.order);
  text(")");
}

void Emitter::node(const bound::Choice& choice, int) {
  out_ += "CASE WHEN ";
  expr(*choice.condition, Whole);
  out_ += " THEN ";
  branch(*choice.then);
  out_ += " ELSE ";
  branch(*choice.otherwise);
  out_ += " END";
}

void Emitter::subselect(const bound::Select& node) {
  out_ += '(';
  select(node, false);
  out_ += ')';
}

}  // namespace zelkor::dialect
