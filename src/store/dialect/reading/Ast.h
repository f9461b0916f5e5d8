#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "store/dialect/reading/Box.h"

// The syntax tree of one statement of the dialect: value types, no behaviour.
namespace zelkor::dialect {

struct Expr;
struct Select;

/// A text, number or date constant: its place in the list of literals that the lexer lifted out of the
/// statement. The tree never holds the value, so that statements of one shape share one tree.
struct LiteralRef {
  std::size_t index = 0;
};

/// True, False, Yes, No, On, Off.
struct BooleanConst {
  bool value = false;
};
struct NullConst {};

/// A number that belongs to the shape and not to the literals: an ordinal in ORDER BY or GROUP BY.
struct OrdinalConst {
  int value = 0;
};

struct ColumnRef {
  std::string table;  // alias or table name; empty when unqualified
  std::string column;
};

/// "*" or "t.*"; only in select lists and in Count(*).
struct Star {
  std::string table;
};

enum class UnaryOp : std::uint8_t { Minus, Plus, Not };
struct Unary {
  UnaryOp op{};
  Box<Expr> operand;
};

enum class BinaryOp : std::uint8_t {
  Add,
  Subtract,
  Multiply,
  Divide,
  IntegerDivide,
  Modulo,
  Power,
  Concatenate,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  And,
  Or,
  Xor,
  Eqv,
  Imp
};
struct Binary {
  BinaryOp op{};
  Box<Expr> left;
  Box<Expr> right;
};

struct Like {
  Box<Expr> value;
  Box<Expr> pattern;
  bool negated = false;
};
struct Between {
  Box<Expr> value;
  Box<Expr> low;
  Box<Expr> high;
  bool negated = false;
};
struct IsNull {
  Box<Expr> value;
  bool negated = false;
};
struct InList {
  Box<Expr> value;
  std::vector<Expr> items;
  bool negated = false;
};
struct InSelect {
  Box<Expr> value;
  Box<Select> select;
  bool negated = false;
};
struct Exists {
  Box<Select> select;
};
struct ScalarSelect {
  Box<Select> select;
};
/// > ALL (...), = ANY (...), = SOME (...).
struct Quantified {
  BinaryOp op{};
  Box<Expr> value;
  bool all = false;
  Box<Select> select;
};
struct FunctionCall {
  std::string name;  // in the statement's own spelling
  std::vector<Expr> arguments;
  bool distinct = false;
};

struct Expr {
  std::variant<NullConst, BooleanConst, LiteralRef, OrdinalConst, ColumnRef, Star, Unary, Binary, Like,
               Between, IsNull, InList, InSelect, Exists, ScalarSelect, Quantified, FunctionCall>
      node;
};

struct TableName {
  std::string name;
  std::string alias;  // empty when none
};
struct DerivedTable {
  Box<Select> select;
  std::string alias;
};
struct Join;
using TableSource = std::variant<TableName, DerivedTable, Box<Join>>;
enum class JoinKind : std::uint8_t { Inner, Left, Right };
struct Join {
  JoinKind kind{};
  TableSource left;
  TableSource right;
  Expr on;
};

struct SelectItem {
  Expr expr;
  std::string alias;  // empty when none
};
struct OrderKey {
  Expr expr;
  bool descending = false;
};

enum class UnionKind : std::uint8_t { Distinct, All };
struct UnionPart;

struct Select {
  bool distinct = false;
  std::optional<int> top;
  bool percent = false;  // of all rows is `top`
  std::vector<SelectItem> items;
  std::optional<TableName> into;
  std::vector<TableSource> from;
  std::optional<Expr> where;
  std::vector<Expr> groupBy;
  std::optional<Expr> having;
  std::vector<UnionPart> unions;  // further parts, in order; ORDER BY then belongs to the whole
  std::vector<OrderKey> orderBy;
};
struct UnionPart {
  UnionKind kind{};
  Select select;
};

struct Assignment {
  ColumnRef target;
  Expr value;
};
struct Insert {
  std::string table;
  std::vector<std::string> columns;  // empty: all, matched by position for VALUES and by name for SELECT
  std::variant<std::vector<Expr>, Box<Select>> source;
};
struct Update {
  TableSource target;
  std::vector<Assignment> assignments;
  std::optional<Expr> where;
};
struct Delete {
  std::string target;  // the table of "t.*" where given, else empty
  std::vector<TableSource> from;
  std::optional<Expr> where;
};

struct ColumnDefinition {
  std::string name;
  std::string typeName;  // in the statement's spelling: TEXT, LONG, COUNTER, ...
  std::optional<int> size;
  bool notNull = false;
  bool primaryKey = false;
  bool unique = false;
};
struct CreateTable {
  std::string table;
  std::vector<ColumnDefinition> columns;
  std::vector<std::string> primaryKey;
};
struct CreateIndex {
  std::string name;
  std::string table;
  std::vector<OrderKey> columns;
  bool unique = false;        // also for WITH PRIMARY
  bool disallowNull = false;  // WITH DISALLOW NULL or WITH PRIMARY
  bool ignoreNull = false;    // WITH IGNORE NULL: rows whose keys are Null stay out of the index
};
struct DropTable {
  std::string table;
};
struct DropIndex {
  std::string name;
  std::string table;
};
struct AlterTable {
  std::string table;
  std::variant<ColumnDefinition, std::string> change;  // column to add, or name of the column to drop
};

using Statement =
    std::variant<Select, Insert, Update, Delete, CreateTable, CreateIndex, DropTable, DropIndex, AlterTable>;

}  // namespace zelkor::dialect
