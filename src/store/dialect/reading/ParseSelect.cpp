#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {

constexpr int kWhole = 100;  // percent

Select StatementParser::select() {
  const Nesting nesting(*this);
  Select whole = selectBlock();
  while (accept(Keyword::Union)) {
    const UnionKind kind = accept(Keyword::All) ? UnionKind::All : UnionKind::Distinct;
    whole.unions.push_back({kind, selectBlock()});
  }
  if (accept(Keyword::Order)) {
    expect(Keyword::By);
    whole.orderBy = orderKeys();
  }
  if (at(Keyword::With)) {
    take();
    expectWord("owneraccess");
    expectWord("option");
  }
  return whole;
}

Select StatementParser::bracketedSelect() {
  const std::size_t outerPiece = piece();
  expect(Symbol::LeftParenthesis);
  Select inner = select();
  accept(Symbol::Semicolon);  // query designers close inner queries too
  if (!accept(Symbol::RightParenthesis)) fail(SyntaxFault::MissingOperator);
  returnToPiece(outerPiece);
  return inner;
}

Select StatementParser::selectBlock() {
  beginPiece();
  expect(Keyword::Select);
  Select block;
  selectQuantity(block);
  block.items = selectItems();
  if (accept(Keyword::Into)) block.into = TableName{expectName(), {}};
  if (accept(Keyword::From)) block.from = tableSources();
  if (accept(Keyword::Where)) block.where = expression();
  if (accept(Keyword::Group)) {
    expect(Keyword::By);
    do {
      block.groupBy.push_back(expression());
    } while (accept(Symbol::Comma));
  }
  if (accept(Keyword::Having)) block.having = expression();
  return block;
}

// DISTINCTROW only makes a query over several tables read-only or not; its rows are those of the query
// without.
void StatementParser::selectQuantity(Select& select) {
  if (accept(Keyword::Distinct)) {
    select.distinct = true;
  } else if (!accept(Keyword::DistinctRow)) {
    accept(Keyword::All);
  }
  if (!accept(Keyword::Top)) return;
  select.top = expectOrdinal();
  select.percent = acceptWord("percent");
  if (select.percent && *select.top > kWhole) fail();
}

std::vector<SelectItem> StatementParser::selectItems() {
  std::vector<SelectItem> items;
  do {
    items.push_back(selectItem());
  } while (accept(Symbol::Comma));
  return items;
}

SelectItem StatementParser::selectItem() {
  beginPiece();
  SelectItem item;
  if (atStar()) {
    item.expr.node = star();
    return item;
  }
  item.expr = expression();
  if (accept(Keyword::As)) item.alias = expectName();
  return item;
}

bool StatementParser::atStar() const {
  return at(Symbol::Star) || (atName() && at(Symbol::Point, 1) && at(Symbol::Star, 2));
}

Star StatementParser::star() {
  Star star;
  if (!at(Symbol::Star)) {
    star.table = expectName();
    expect(Symbol::Point);
  }
  expect(Symbol::Star);
  return star;
}

std::vector<OrderKey> StatementParser::orderKeys() {
  std::vector<OrderKey> keys;
  do {
    OrderKey key;
    key.expr = expression();
    key.descending = accept(Keyword::Desc);
    if (!key.descending) accept(Keyword::Asc);
    keys.push_back(std::move(key));
  } while (accept(Symbol::Comma));
  return keys;
}

}  // namespace zelkor::dialect
