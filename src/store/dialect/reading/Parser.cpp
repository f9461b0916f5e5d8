#include "store/dialect/reading/Parser.h"

#include <stdexcept>
#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {

Statement StatementParser::statement() {
  const auto parsed = [this]() -> Statement {
    switch (peek().keyword) {
      case Keyword::Select:
        return select();
      case Keyword::Insert:
        return insert();
      case Keyword::Update:
        return update();
      case Keyword::Delete:
        return deleteRows();
      case Keyword::Create:
        return create();
      case Keyword::Drop:
        return drop();
      case Keyword::Alter:
        return alter();
      default:
        fail();
    }
  };
  Statement result = parsed();
  expectEnd();
  return result;
}

namespace {

StatementParser parserOf(std::string_view statement, const Shape& shape) {
  StatementParser parser(statement);
  if (parser.literals() != shape.literals.size()) {
    throw std::invalid_argument("the shape belongs to another statement");
  }
  return parser;
}

}  // namespace

Statement parse(std::string_view statement, const Shape& shape) {
  return parserOf(statement, shape).statement();
}

Expr parseExpression(std::string_view text, const Shape& shape) {
  return parserOf(text, shape).loneExpression();
}

}  // namespace zelkor::dialect
