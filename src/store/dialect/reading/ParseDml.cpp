#include <utility>

#include "store/dialect/reading/ParserImpl.h"

namespace zelkor::dialect {

Insert StatementParser::insert() {
  expect(Keyword::Insert);
  expect(Keyword::Into);
  Insert insert;
  insert.table = expectName();
  if (at(Symbol::LeftParenthesis) && !at(Keyword::Select, 1)) insert.columns = nameList();
  if (at(Keyword::Select)) {
    insert.source = Box<Select>(select());
    return insert;
  }
  if (at(Symbol::LeftParenthesis)) {
    insert.source = Box<Select>(bracketedSelect());
    return insert;
  }
  beginPiece();
  expect(Keyword::Values);
  beginPiece();
  expect(Symbol::LeftParenthesis);
  insert.source = expressions();
  expect(Symbol::RightParenthesis);
  return insert;
}

std::vector<std::string> StatementParser::nameList() {
  std::vector<std::string> names;
  expect(Symbol::LeftParenthesis);
  do {
    std::string name = expectName();
    if (accept(Symbol::Point)) name = expectName();
    names.push_back(std::move(name));
  } while (accept(Symbol::Comma));
  expect(Symbol::RightParenthesis);
  return names;
}

Update StatementParser::update() {
  expect(Keyword::Update);
  Update update;
  update.target = updateTarget();
  expect(Keyword::Set);
  do {
    update.assignments.push_back(assignment());
  } while (accept(Symbol::Comma));
  if (accept(Keyword::Where)) update.where = expression();
  return update;
}

// Tables in a list are joined by the condition of WHERE alone.
TableSource StatementParser::updateTarget() {
  std::vector<TableSource> sources = tableSources();
  TableSource target = std::move(sources.front());
  for (std::size_t i = 1; i < sources.size(); ++i) {
    countOperator();
    Join join;
    join.left = std::move(target);
    join.right = std::move(sources[i]);
    join.on.node = BooleanConst{true};
    target = Box<Join>(std::move(join));
  }
  return target;
}

Assignment StatementParser::assignment() {
  beginPiece();
  Assignment assignment;
  assignment.target.column = expectName();
  if (accept(Symbol::Point)) assignment.target = {std::move(assignment.target.column), expectName()};
  expect(Symbol::Equal);
  assignment.value = expression();
  return assignment;
}

Delete StatementParser::deleteRows() {
  expect(Keyword::Delete);
  accept(Keyword::DistinctRow);
  Delete statement;
  statement.target = deleteTarget();
  expect(Keyword::From);
  statement.from = tableSources();
  if (accept(Keyword::Where)) statement.where = expression();
  return statement;
}

std::string StatementParser::deleteTarget() {
  return atStar() ? star().table : std::string();
}

}  // namespace zelkor::dialect
