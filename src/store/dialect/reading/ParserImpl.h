#pragma once

#include <string>
#include <vector>

#include "store/dialect/reading/Ast.h"
#include "store/dialect/reading/ParserBase.h"

namespace zelkor::dialect {

/// Recursive descent over one statement. The topics are in ParseExpression, ParseSelect, ParseFrom,
/// ParseDml and ParseDdl.
class StatementParser : private ParserBase {
 public:
  explicit StatementParser(std::string_view statement) : ParserBase(statement) {}

  /// The whole text as a statement, or as an expression.
  Statement statement();
  Expr loneExpression();
  using ParserBase::literals;

 private:
  // Expressions. `minimum` is the weakest operator that may be at this place, see ParseExpression.
  Expr expression();
  Expr expression(int minimum);
  Expr prefixed();
  Expr primary();
  Expr parenthesized();
  Expr nameOrCall();
  Expr column();
  Expr call(std::string name);
  Expr exists();
  bool predicate(Expr& left);
  bool binary(Expr& left, int minimum);
  Expr chain(BinaryOp op, int strength, Expr first);
  Expr like(Expr value, bool negated);
  Expr between(Expr value, bool negated);
  Expr in(Expr value, bool negated);
  Expr isNull(Expr value);
  std::vector<Expr> expressions();
  bool atQuantifier() const;
  Expr quantified(BinaryOp op, Expr value);

  // Queries.
  Select select();
  Select selectBlock();
  Select bracketedSelect();
  void selectQuantity(Select& select);
  std::vector<SelectItem> selectItems();
  SelectItem selectItem();
  bool atStar() const;
  Star star();
  std::vector<OrderKey> orderKeys();

  // Table sources.
  std::vector<TableSource> tableSources();
  TableSource tableSource();
  TableSource simpleSource();
  TableName tableName();
  std::string alias();
  bool acceptJoin(JoinKind& kind);

  // Statements that write.
  Insert insert();
  std::vector<std::string> nameList();
  Update update();
  TableSource updateTarget();
  Assignment assignment();
  Delete deleteRows();
  std::string deleteTarget();

  // Definitions.
  Statement create();
  CreateTable createTable();
  void tableElement(CreateTable& table);
  void tableConstraint(CreateTable& table);
  ColumnDefinition columnDefinition();
  void columnSize(ColumnDefinition& column);
  bool columnOption(ColumnDefinition& column);
  CreateIndex createIndex(bool unique);
  void indexOption(CreateIndex& index);
  Statement drop();
  AlterTable alter();
};

}  // namespace zelkor::dialect
