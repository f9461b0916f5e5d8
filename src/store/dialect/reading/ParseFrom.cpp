#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {

std::vector<TableSource> StatementParser::tableSources() {
  std::vector<TableSource> sources;
  do {
    sources.push_back(tableSource());
  } while (accept(Symbol::Comma));
  return sources;
}

TableSource StatementParser::tableSource() {
  const Nesting nesting(*this);
  beginPiece();
  TableSource source = simpleSource();
  JoinKind kind{};
  while (acceptJoin(kind)) {
    countOperator();
    Join join;
    join.kind = kind;
    join.left = std::move(source);
    join.right = simpleSource();
    expect(Keyword::On);
    join.on = expression();
    source = Box<Join>(std::move(join));
  }
  return source;
}

TableSource StatementParser::simpleSource() {
  if (!at(Symbol::LeftParenthesis)) return tableName();
  if (at(Keyword::Select, 1)) {
    Select inner = bracketedSelect();
    return DerivedTable{std::move(inner), alias()};
  }
  expect(Symbol::LeftParenthesis);
  TableSource inner = tableSource();
  if (!accept(Symbol::RightParenthesis)) fail(SyntaxFault::MissingOperator);
  return inner;
}

TableName StatementParser::tableName() {
  TableName table;
  table.name = expectName();
  table.alias = alias();
  return table;
}

std::string StatementParser::alias() {
  if (accept(Keyword::As) || atName()) return expectName();
  return {};
}

bool StatementParser::acceptJoin(JoinKind& kind) {
  if (at(Keyword::Inner)) {
    kind = JoinKind::Inner;
  } else if (at(Keyword::Left)) {
    kind = JoinKind::Left;
  } else if (at(Keyword::Right)) {
    kind = JoinKind::Right;
  } else {
    return false;
  }
  take();
  if (kind != JoinKind::Inner) acceptWord("outer");
  expect(Keyword::Join);
  return true;
}

}  // namespace zelkor::dialect
