#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

struct BindContext;
struct SqlFunction;

namespace bound {
struct Node;
}

using Arguments = std::span<const Value>;

/// Gathers one value of each row.
class RowGathering {
 public:
  RowGathering() = default;
  RowGathering(const RowGathering&) = delete;
  RowGathering& operator=(const RowGathering&) = delete;
  virtual ~RowGathering() = default;
  virtual void add(const Value& value) = 0;
  /// The same for a number, without the way through a value.
  virtual void addNumber(double number) { add(Value(number)); }
  /// Before `add`: where the row is in the order of adding, for what depends on it.
  virtual void standAt(std::vector<std::int64_t> /*place*/) {}
  virtual Value result() const = 0;
};

/// Binds a call that is more than a function of its arguments.
using FunctionBinding = bound::Node (*)(BindContext& context, const SqlFunction& function,
                                        std::vector<bound::Node> arguments);

/// A function of the dialect, or one that only translations call: what it takes and gives and how each engine
/// does it. Registration, the server's definitions, the refusal of other names and the documentation follow
/// from its row.
struct SqlFunction {
  /// As statements write it, a row for each number of arguments; empty: only translations call it.
  std::string_view name;

  /// One letter per argument. It is converted to t a text, n a number, d a date, and Null gives Null; or it
  /// is handed on, Null too, c being a number or a text, m also an amount, s a text or any number, v anything
  /// (a date in a file as its text), o the same compared in any case.
  std::string_view arguments;

  ColumnType result{};        // Unknown: the type of the first argument
  std::string_view called{};  // by translations: one of the engine's own unless it begins with zk_

  /// What a file calls; none where its engine has the function.
  Value (*inFile)(Arguments arguments) = nullptr;

  /// An expression of a, b, c, or a block of the server's language; empty where the server has the function
  /// or data/postgresql-*.sql defines it. An aggregate: `?` is the value of a row, `!` where DISTINCT
  /// goes, and `^` the order in which the rows were added.
  std::string_view onServer{};

  std::string_view meaning{};
  FunctionBinding binding = nullptr;                            // none: a plain call
  std::unique_ptr<RowGathering> (*gatheredInFile)() = nullptr;  // of an aggregate, in place of inFile

  /// Whether it gathers rows (Sum, Count, ...).
  bool isAggregate() const { return onServer.find('?') != std::string_view::npos; }
  /// Whether what it gathers depends on the order of the rows; a file hands it their places, too.
  bool gathersInOrder() const { return onServer.find('^') != std::string_view::npos; }
};

/// The rows, those of a topic together.
std::span<const SqlFunction> conversionFunctions();
std::span<const SqlFunction> textFunctions();
std::span<const SqlFunction> dateFunctions();
std::span<const SqlFunction> numberFunctions();
std::span<const SqlFunction> aggregateFunctions();
/// All of them, the aggregates last.
std::vector<const SqlFunction*> sqlFunctions();

/// The row of that name, in any case, that takes so many arguments; any of the name where none does; nullptr
/// where there is no such name.
const SqlFunction* sqlFunction(std::string_view name, std::size_t arguments);

/// Whether a function of that name gathers rows.
bool isAggregate(std::string_view name);

/// The row of what translations call by that name.
const SqlFunction& functionCalled(std::string_view called);

}  // namespace zelkor::dialect
