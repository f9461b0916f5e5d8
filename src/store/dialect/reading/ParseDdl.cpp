#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {

Statement StatementParser::create() {
  expect(Keyword::Create);
  if (acceptWord("table")) return createTable();
  const bool unique = acceptWord("unique");
  expectWord("index");
  return createIndex(unique);
}

CreateTable StatementParser::createTable() {
  CreateTable table;
  table.table = expectName();
  expect(Symbol::LeftParenthesis);
  do {
    tableElement(table);
  } while (accept(Symbol::Comma));
  expect(Symbol::RightParenthesis);
  return table;
}

void StatementParser::tableElement(CreateTable& table) {
  beginPiece();
  if (atWord("constraint")) {
    take();
    expectName();
    tableConstraint(table);
  } else if (atWord("primary") && atWord("key", 1)) {
    tableConstraint(table);
  } else {
    table.columns.push_back(columnDefinition());
  }
}

void StatementParser::tableConstraint(CreateTable& table) {
  expectWord("primary");
  expectWord("key");
  table.primaryKey = nameList();
}

ColumnDefinition StatementParser::columnDefinition() {
  ColumnDefinition column;
  column.name = expectName();
  if (peek().kind != TokenKind::Word) fail();
  column.typeName = expectName();
  if (at(Symbol::LeftParenthesis)) columnSize(column);
  while (columnOption(column)) {
  }
  return column;
}

void StatementParser::columnSize(ColumnDefinition& column) {
  expect(Symbol::LeftParenthesis);
  column.size = expectOrdinal();
  if (accept(Symbol::Comma)) expectOrdinal();  // decimals: every fraction is kept as it is
  expect(Symbol::RightParenthesis);
}

bool StatementParser::columnOption(ColumnDefinition& column) {
  if (accept(Keyword::Null)) return true;
  if (accept(Keyword::Not)) {
    expect(Keyword::Null);
    column.notNull = true;
    return true;
  }
  if (acceptWord("constraint")) expectName();
  if (acceptWord("primary")) {
    expectWord("key");
    column.primaryKey = true;
    return true;
  }
  if (!acceptWord("unique")) return false;
  column.unique = true;
  return true;
}

CreateIndex StatementParser::createIndex(bool unique) {
  CreateIndex index;
  index.unique = unique;
  index.name = expectName();
  expect(Keyword::On);
  index.table = expectName();
  expect(Symbol::LeftParenthesis);
  index.columns = orderKeys();
  expect(Symbol::RightParenthesis);
  if (accept(Keyword::With)) {
    do {
      indexOption(index);
    } while (accept(Symbol::Comma) || atName());
  }
  return index;
}

void StatementParser::indexOption(CreateIndex& index) {
  if (acceptWord("primary")) {
    index.unique = index.disallowNull = true;
  } else if (acceptWord("disallow")) {
    expect(Keyword::Null);
    index.disallowNull = true;
  } else {
    expectWord("ignore");
    expect(Keyword::Null);
    index.ignoreNull = true;
  }
}

Statement StatementParser::drop() {
  expect(Keyword::Drop);
  if (acceptWord("table")) return DropTable{expectName()};
  expectWord("index");
  std::string name = expectName();
  expect(Keyword::On);
  return DropIndex{std::move(name), expectName()};
}

AlterTable StatementParser::alter() {
  expect(Keyword::Alter);
  expectWord("table");
  AlterTable change;
  change.table = expectName();
  if (accept(Keyword::Drop)) {
    if (atName(1)) acceptWord("column");
    change.change = expectName();
    return change;
  }
  expectWord("add");
  if (atName(2)) acceptWord("column");
  change.change = columnDefinition();
  return change;
}

}  // namespace zelkor::dialect
