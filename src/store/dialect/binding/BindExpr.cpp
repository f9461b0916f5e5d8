#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

Node truth(auto node) {
  return {std::move(node), valueType(ColumnType::Boolean), true};
}

[[noreturn]] void raiseMisplaced(const std::string& piece) {
  throw RuntimeError(ErrorNumber::SyntaxInQuery, "语法错误 在查询表达式 '" + piece + "' 中。");
}

bound::BinaryKind comparisonKind(BinaryOp op) {
  switch (op) {
    case BinaryOp::Equal:
      return bound::BinaryKind::Equal;
    case BinaryOp::NotEqual:
      return bound::BinaryKind::NotEqual;
    case BinaryOp::Less:
      return bound::BinaryKind::Less;
    case BinaryOp::LessEqual:
      return bound::BinaryKind::LessEqual;
    case BinaryOp::Greater:
      return bound::BinaryKind::Greater;
    default:
      return bound::BinaryKind::GreaterEqual;
  }
}

}  // namespace

Node ExprBinder::value(const Expr& expr) {
  return asValue(bind(expr));
}

Node ExprBinder::condition(const Expr& expr) {
  return asCondition(bind(expr));
}

Node ExprBinder::assigned(const Expr& expr, const ColumnInfo& target) {
  return dialect::assigned(context_, value(expr), target);
}

Node ExprBinder::bind(const Expr& expr) {
  return std::visit([this](const auto& node) { return bind(node); }, expr.node);
}

Node ExprBinder::bind(const NullConst&) {
  return {bound::NullValue{}, {}};
}

Node ExprBinder::bind(const BooleanConst& constant) {
  return {bound::IntegerValue{constant.value ? -1 : 0}, valueType(ColumnType::Boolean)};
}

Node ExprBinder::bind(const LiteralRef& literal) {
  switch (context_.shape.literals[literal.index].kind) {
    case LiteralKind::Text:
      return {bound::Parameter{context_.addSlot(literal.index, BindAs::Text)},
              valueType(ColumnType::Text, 255)};
    case LiteralKind::Number:
      return {bound::Parameter{context_.addSlot(literal.index, BindAs::Number)}, someNumber()};
    case LiteralKind::Date:
      break;
  }
  return {bound::Parameter{context_.addSlot(literal.index, BindAs::Date)}, valueType(ColumnType::Date)};
}

Node ExprBinder::bind(const OrdinalConst& ordinal) {
  return {bound::IntegerValue{ordinal.value}, valueType(ColumnType::Long)};
}

Node ExprBinder::bind(const ColumnRef& reference) {
  return scope_.resolve(reference);
}

Node ExprBinder::bind(const Star&) {
  raiseMisplaced("*");
}

Node ExprBinder::bind(const Unary& expr) {
  Node operand = bind(*expr.operand);
  switch (expr.op) {
    case UnaryOp::Not:
      return negatedCondition(std::move(operand));
    case UnaryOp::Minus:
      return negative(asValue(std::move(operand)));
    case UnaryOp::Plus:
      break;
  }
  return asValue(std::move(operand));
}

Node ExprBinder::bind(const Binary& expr) {
  Node left = bind(*expr.left);
  Node right = bind(*expr.right);
  switch (expr.op) {
    case BinaryOp::Equal:
    case BinaryOp::NotEqual:
    case BinaryOp::Less:
    case BinaryOp::LessEqual:
    case BinaryOp::Greater:
    case BinaryOp::GreaterEqual:
      return comparison(context_, expr.op, std::move(left), std::move(right));
    case BinaryOp::And:
    case BinaryOp::Or:
    case BinaryOp::Xor:
    case BinaryOp::Eqv:
    case BinaryOp::Imp:
      return logical(expr.op, std::move(left), std::move(right));
    default:
      return arithmetic(expr.op, std::move(left), std::move(right));
  }
}

Node ExprBinder::bind(const Like& expr) {
  Node subject = bind(*expr.value);
  return like(context_, std::move(subject), bind(*expr.pattern), expr.negated);
}

Node ExprBinder::bind(const Between& expr) {
  Node subject = bind(*expr.value);
  Node low = bind(*expr.low);
  return between(context_, std::move(subject), std::move(low), bind(*expr.high), expr.negated);
}

Node ExprBinder::bind(const IsNull& expr) {
  return truth(bound::IsNull{value(*expr.value), expr.negated});
}

Node ExprBinder::bind(const InList& expr) {
  Node subject = bind(*expr.value);
  std::vector<Node> items;
  for (const Expr& item : expr.items) items.push_back(bind(item));
  return inList(context_, std::move(subject), std::move(items), expr.negated);
}

Node ExprBinder::bind(const InSelect& expr) {
  Node subject = caseBlind(value(*expr.value));
  return truth(bound::InSelect{std::move(subject), comparedColumn(*expr.select), expr.negated});
}

Node ExprBinder::bind(const Exists& expr) {
  return truth(bound::Exists{subselect(*expr.select)});
}

Node ExprBinder::bind(const ScalarSelect& expr) {
  bound::Select select = oneColumn(*expr.select);
  const bound::ValueType type = select.items.front().expr.type;
  return {bound::ScalarSelect{std::move(select)}, type};
}

Node ExprBinder::bind(const Quantified& expr) {
  Node subject = caseBlind(value(*expr.value));
  return truth(
      bound::Quantified{comparisonKind(expr.op), std::move(subject), expr.all, comparedColumn(*expr.select)});
}

Node ExprBinder::bind(const FunctionCall& expr) {
  if (expr.arguments.size() == 1 && std::holds_alternative<Star>(expr.arguments.front().node)) {
    if (sameName(expr.name, "count")) return countRows();
    raiseMisplaced(expr.name + "(*)");
  }
  std::vector<Node> arguments;
  for (const Expr& argument : expr.arguments) arguments.push_back(bind(argument));
  return functionCall(context_, expr, std::move(arguments));
}

bound::Select ExprBinder::oneColumn(const Select& select) {
  bound::Select result = subselect(select);
  if (result.items.size() != 1)
    throw RuntimeError(ErrorNumber::SubqueryColumnCount, "没有使用 EXISTS 保留字的子查询只能返回一个字段。");
  return result;
}

bound::Select ExprBinder::comparedColumn(const Select& select) {
  bound::Select result = oneColumn(select);
  // A value is among rows or it is not, however often they are there; engines would sort for nothing.
  if (!result.top) result.distinct = false;
  bound::Node& column = result.items.front().expr;
  column = caseBlind(std::move(column));
  return result;
}

bound::Select ExprBinder::subselect(const Select& select) {
  return bindSelect(context_, select, &scope_).select;
}

}  // namespace zelkor::dialect
