#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "store/dialect/binding/Schema.h"
#include "store/dialect/reading/Box.h"

// A statement after binding: names are resolved, the peculiarities of the dialect are written out, and what
// is left can be printed for an engine node by node.
namespace zelkor::dialect {
struct SqlFunction;
}

namespace zelkor::dialect::bound {

enum class Family : std::uint8_t { Unknown, Text, Number, Date, Boolean, Binary };

/// What is known of a value: Unknown as `type` within the family Number means that the value itself decides.
struct ValueType {
  ColumnType type = ColumnType::Unknown;
  int size = 0;
  Family family = Family::Unknown;
};

struct Node;
struct Select;

struct NullValue {};
struct IntegerValue {
  int value = 0;
};
struct TextValue {
  std::string value;
};

/// Parameter `slot` (from 0) of the statement.
struct Parameter {
  std::size_t slot = 0;
};
struct Column {
  std::string qualifier;  // alias or table as the FROM clause prints it
  std::string name;
  std::string table;                  // the base table; empty for a column of a derived table
  std::optional<std::size_t> source;  // index in the FROM clause of its own SELECT; none for an outer one
  bool orderedAsNumber = false;
};

/// Val, CInt or CLng of a text column that is indexed as a number: printed as a call or, in the fast form, as
/// a cast that meets the index.
struct NumberOfText {
  const SqlFunction* function;
  Column column;
};

/// The key of a row, which tells when it was added.
struct RowKey {
  std::string qualifier;
};
struct OrderKey;
/// The number of a row among all of its SELECT in that order, before a TOP takes the first of them.
struct RowNumber {
  std::vector<OrderKey> order;
};

enum class UnaryKind : std::uint8_t {
  Negate,
  Not,
  ConditionAsValue,  // true, false, unknown -> -1, 0, Null
  ValueAsCondition,  // not 0
  CaseBlind,         // a text that is no plain column takes part in a comparison or an order
};
struct Unary {
  UnaryKind kind{};
  Box<Node> operand;
};

enum class BinaryKind : std::uint8_t {
  Add,
  Subtract,
  Multiply,
  Concatenate,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  And,
  Or
};
struct Binary {
  BinaryKind kind{};
  Box<Node> left;
  Box<Node> right;
};

struct IsNull {
  Box<Node> value;
  bool negated = false;
};
struct Between {
  Box<Node> value;
  Box<Node> low;
  Box<Node> high;
  bool negated = false;
};
struct InList {
  Box<Node> value;
  std::vector<Node> items;
  bool negated = false;
};
struct InSelect {
  Box<Node> value;
  Box<Select> select;
  bool negated = false;
};
struct Exists {
  Box<Select> select;
};
struct ScalarSelect {
  Box<Select> select;
};
struct Quantified {
  BinaryKind kind{};
  Box<Node> value;
  bool all = false;
  Box<Select> select;
};
struct Call {
  const SqlFunction* function;
  std::vector<Node> arguments;
};
struct Aggregate {
  const SqlFunction* function;
  std::vector<Node> arguments;  // empty: Count(*)
  bool distinct = false;
};
struct Choice {
  Box<Node> condition;
  Box<Node> then;
  Box<Node> otherwise;
};

struct Node {
  std::variant<NullValue, IntegerValue, TextValue, Parameter, Column, NumberOfText, RowKey, RowNumber, Unary,
               Binary, IsNull, Between, InList, InSelect, Exists, ScalarSelect, Quantified, Call, Aggregate,
               Choice>
      node;
  ValueType type;
  bool condition = false;  // true, false or unknown, and no value yet
};

struct Item {
  Node expr;
  std::string name;                     // of the output column
  bool aggregates = false;              // holds an aggregate
  std::optional<std::size_t> source{};  // index of the base table in the FROM clause, for a plain column
  std::string sourceColumn{};
};
struct OrderKey {
  Node expr;
  bool descending = false;
  std::optional<std::size_t> item{};  // the output column that it repeats
  bool present = false;               // never Null
};

struct Table {
  std::string name;   // the table's own spelling
  std::string alias;  // as written; empty when none
  const std::string& qualifier() const { return alias.empty() ? name : alias; }
};
struct Derived {
  Box<Select> select;
  std::string alias;
};
struct Join;
using Source = std::variant<Table, Derived, Box<Join>>;
struct Join {
  bool left = false;  // keeps unmatched rows of `first`
  Source first;
  Source second;
  Node on;
};

struct Part;
struct Select {
  bool distinct = false;
  std::optional<int> top;
  bool percent = false;  // of all rows is `top`
  std::vector<Item> items;
  std::vector<Source> from;
  std::optional<Node> where;
  std::vector<Node> groupBy;
  std::optional<Node> having;
  std::vector<Part> unions;
  std::vector<OrderKey> orderBy;
  bool aggregated = false;
  bool inOrder = false;  // gathers the first or the last row
  std::vector<OrderKey>
      ties{};  // the order of rows that are alike, where it is not that of FROM or of groups
};
struct Part {
  bool all = false;
  Select select;
};

struct Assignment {
  std::string column;
  Node value;
};
struct Insert {
  std::string table;
  std::vector<std::string> columns;
  std::variant<std::vector<Node>, Select> source;
};
struct Update {
  Table target;
  std::vector<Source> from;  // empty: the target alone; else the joined tables, the target among them
  std::vector<Assignment> assignments;
  std::optional<Node> where;
};
struct Delete {
  Table target;
  std::vector<Source> from;  // as in Update
  std::optional<Node> where;
};

}  // namespace zelkor::dialect::bound
