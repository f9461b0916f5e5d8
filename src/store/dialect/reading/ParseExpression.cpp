#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {
namespace {

// From the weakest to the strongest. NOT comes between AND and the comparisons, the sign between ^ and *.
enum Strength : int {
  kImp = 1,
  kEqv,
  kXor,
  kOr,
  kAnd,
  kNot,
  kComparison,
  kConcatenation,
  kSum,
  kModulo,
  kIntegerQuotient,
  kProduct,
  kSign,
  kPower
};

struct Operator {
  BinaryOp op{};
  int strength = 0;
};

std::optional<Operator> operatorOf(Symbol symbol) {
  switch (symbol) {
    case Symbol::Plus:
      return Operator{BinaryOp::Add, kSum};
    case Symbol::Minus:
      return Operator{BinaryOp::Subtract, kSum};
    case Symbol::Star:
      return Operator{BinaryOp::Multiply, kProduct};
    case Symbol::Slash:
      return Operator{BinaryOp::Divide, kProduct};
    case Symbol::Backslash:
      return Operator{BinaryOp::IntegerDivide, kIntegerQuotient};
    case Symbol::Caret:
      return Operator{BinaryOp::Power, kPower};
    case Symbol::Ampersand:
      return Operator{BinaryOp::Concatenate, kConcatenation};
    case Symbol::Equal:
      return Operator{BinaryOp::Equal, kComparison};
    case Symbol::NotEqual:
      return Operator{BinaryOp::NotEqual, kComparison};
    case Symbol::Less:
      return Operator{BinaryOp::Less, kComparison};
    case Symbol::LessEqual:
      return Operator{BinaryOp::LessEqual, kComparison};
    case Symbol::Greater:
      return Operator{BinaryOp::Greater, kComparison};
    case Symbol::GreaterEqual:
      return Operator{BinaryOp::GreaterEqual, kComparison};
    default:
      return std::nullopt;
  }
}

std::optional<Operator> operatorOf(Keyword keyword) {
  switch (keyword) {
    case Keyword::Mod:
      return Operator{BinaryOp::Modulo, kModulo};
    case Keyword::And:
      return Operator{BinaryOp::And, kAnd};
    case Keyword::Or:
      return Operator{BinaryOp::Or, kOr};
    case Keyword::Xor:
      return Operator{BinaryOp::Xor, kXor};
    case Keyword::Eqv:
      return Operator{BinaryOp::Eqv, kEqv};
    case Keyword::Imp:
      return Operator{BinaryOp::Imp, kImp};
    default:
      return std::nullopt;
  }
}

template <typename Node>
Expr make(Node node) {
  Expr expr;
  expr.node = std::move(node);
  return expr;
}

/// The expressions in their order, as a tree whose halves weigh the same.
Expr joined(BinaryOp op, std::span<Expr> expressions) {
  if (expressions.size() == 1) return std::move(expressions.front());
  const std::size_t half = (expressions.size() + 1) / 2;
  Expr left = joined(op, expressions.first(half));
  Expr right = joined(op, expressions.subspan(half));
  return make(Binary{op, std::move(left), std::move(right)});
}

}  // namespace

Expr StatementParser::loneExpression() {
  Expr expr = expression();
  expectEnd();
  return expr;
}

Expr StatementParser::expression() {
  beginPiece();
  return expression(kImp);
}

Expr StatementParser::expression(int minimum) {
  const Nesting nesting(*this);
  Expr left = prefixed();
  while ((minimum <= kComparison && predicate(left)) || binary(left, minimum)) {
  }
  return left;
}

bool StatementParser::binary(Expr& left, int minimum) {
  const auto found =
      peek().kind == TokenKind::Symbol ? operatorOf(peek().symbol) : operatorOf(peek().keyword);
  if (!found || found->strength < minimum) return false;
  take();
  countOperator();
  if (found->strength == kComparison && atQuantifier()) {
    left = quantified(found->op, std::move(left));
    return true;
  }
  if (found->op == BinaryOp::And || found->op == BinaryOp::Or) {
    left = chain(found->op, found->strength, std::move(left));
    return true;
  }
  Expr right = expression(found->strength + 1);
  left = make(Binary{found->op, std::move(left), std::move(right)});
  return true;
}

/// Conditions joined by one operator, of which the first has been read. A list of all departments is one such
/// chain; it hangs up evenly, so that its length does not count as depth.
Expr StatementParser::chain(BinaryOp op, int strength, Expr first) {
  const Keyword link = op == BinaryOp::And ? Keyword::And : Keyword::Or;
  const std::size_t before = operators();
  std::size_t deepest = before;
  std::vector<Expr> conditions;
  conditions.push_back(std::move(first));
  do {
    returnToOperators(before);
    conditions.push_back(expression(strength + 1));
    deepest = std::max(deepest, operators());
  } while (accept(link));
  returnToOperators(deepest);
  return joined(op, conditions);
}

Expr StatementParser::prefixed() {
  UnaryOp op{};
  if (at(Keyword::Not)) {
    op = UnaryOp::Not;
  } else if (at(Symbol::Minus)) {
    op = UnaryOp::Minus;
  } else if (at(Symbol::Plus)) {
    op = UnaryOp::Plus;
  } else {
    return primary();
  }
  take();
  return make(Unary{op, expression(op == UnaryOp::Not ? kNot : kSign)});
}

Expr StatementParser::primary() {
  switch (peek().kind) {
    case TokenKind::Literal:
      return make(LiteralRef{take().literal});
    case TokenKind::Ordinal:
      return make(OrdinalConst{expectOrdinal()});
    case TokenKind::QuotedName:
      return nameOrCall();
    case TokenKind::Word:
      break;
    default:
      return parenthesized();
  }
  switch (peek().keyword) {
    case Keyword::None:
      return nameOrCall();
    case Keyword::Null:
      take();
      return make(NullConst{});
    case Keyword::True:
    case Keyword::On:
      take();
      return make(BooleanConst{true});
    case Keyword::False:
      take();
      return make(BooleanConst{false});
    case Keyword::Exists:
      return exists();
    case Keyword::Left:
    case Keyword::Right:
      if (at(Symbol::LeftParenthesis, 1)) return call(std::string(take().text));
      fail();
    default:
      fail();
  }
}

Expr StatementParser::parenthesized() {
  if (at(Keyword::Select, 1)) return make(ScalarSelect{bracketedSelect()});
  expect(Symbol::LeftParenthesis);
  Expr expr = expression(kImp);
  if (!accept(Symbol::RightParenthesis)) fail(SyntaxFault::MissingOperator);
  return expr;
}

Expr StatementParser::nameOrCall() {
  if (peek().kind == TokenKind::Word && !at(Symbol::Point, 1)) {
    if (at(Symbol::LeftParenthesis, 1)) return call(std::string(take().text));
    if (acceptWord("yes")) return make(BooleanConst{true});
    if (acceptWord("no") || acceptWord("off")) return make(BooleanConst{false});
  }
  return column();
}

// Behind the point any word is a name.
Expr StatementParser::column() {
  ColumnRef ref;
  ref.column = expectName();
  if (accept(Symbol::Point)) {
    ref.table = std::move(ref.column);
    if (peek().kind != TokenKind::Word && peek().kind != TokenKind::QuotedName) fail();
    ref.column = std::string(take().text);
  }
  return make(std::move(ref));
}

Expr StatementParser::call(std::string name) {
  FunctionCall function;
  function.name = std::move(name);
  expect(Symbol::LeftParenthesis);
  if (accept(Symbol::RightParenthesis)) return make(std::move(function));
  function.distinct = accept(Keyword::Distinct);
  if (atStar()) {
    function.arguments.push_back(make(star()));
  } else {
    function.arguments = expressions();
  }
  if (!accept(Symbol::RightParenthesis)) fail(SyntaxFault::MissingOperator);
  return make(std::move(function));
}

std::vector<Expr> StatementParser::expressions() {
  std::vector<Expr> list;
  do {
    list.push_back(expression(kImp));
  } while (accept(Symbol::Comma));
  return list;
}

bool StatementParser::predicate(Expr& left) {
  const bool negated = at(Keyword::Not);
  const std::size_t ahead = negated ? 1 : 0;
  if (!negated && at(Keyword::Is)) {
    left = isNull(std::move(left));
    return true;
  }
  const Keyword keyword = peek(ahead).keyword;
  if (keyword != Keyword::Like && keyword != Keyword::Between && keyword != Keyword::In) return false;
  if (negated) take();
  take();
  countOperator();
  switch (keyword) {
    case Keyword::Like:
      left = like(std::move(left), negated);
      break;
    case Keyword::Between:
      left = between(std::move(left), negated);
      break;
    default:
      left = in(std::move(left), negated);
      break;
  }
  return true;
}

Expr StatementParser::like(Expr value, bool negated) {
  return make(Like{std::move(value), expression(kConcatenation), negated});
}

Expr StatementParser::between(Expr value, bool negated) {
  Expr low = expression(kConcatenation);
  expect(Keyword::And);
  return make(Between{std::move(value), std::move(low), expression(kConcatenation), negated});
}

Expr StatementParser::in(Expr value, bool negated) {
  if (at(Symbol::LeftParenthesis) && at(Keyword::Select, 1)) {
    return make(InSelect{std::move(value), bracketedSelect(), negated});
  }
  expect(Symbol::LeftParenthesis);
  std::vector<Expr> items = expressions();
  if (!accept(Symbol::RightParenthesis)) fail(SyntaxFault::MissingOperator);
  return make(InList{std::move(value), std::move(items), negated});
}

Expr StatementParser::isNull(Expr value) {
  expect(Keyword::Is);
  countOperator();
  const bool negated = accept(Keyword::Not);
  expect(Keyword::Null);
  return make(IsNull{std::move(value), negated});
}

Expr StatementParser::exists() {
  expect(Keyword::Exists);
  return make(Exists{bracketedSelect()});
}

bool StatementParser::atQuantifier() const {
  return (at(Keyword::All) || at(Keyword::Any) || at(Keyword::Some)) && at(Symbol::LeftParenthesis, 1);
}

Expr StatementParser::quantified(BinaryOp op, Expr value) {
  const bool all = take().keyword == Keyword::All;
  return make(Quantified{op, std::move(value), all, bracketedSelect()});
}

}  // namespace zelkor::dialect
