#pragma once

#include <sqlite3.h>

#include <exception>
#include <span>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Value.h"

namespace zelkor {

/// Teaches the connection the functions zk_... that translated statements call. A function reports a runtime
/// error as "ZK<number>:<description>".
void registerSqliteFunctions(sqlite3* connection);

namespace sqlite {

using Arguments = std::span<sqlite3_value*>;
using Function = void (*)(sqlite3_context*, Arguments);

struct FunctionEntry {
  const char* name = "";
  int arguments = 0;  // -1: any number
  Function function = nullptr;
  bool deterministic = true;
};

std::span<const FunctionEntry> conversionFunctions();
std::span<const FunctionEntry> textFunctions();
std::span<const FunctionEntry> dateFunctions();
std::span<const FunctionEntry> numberFunctions();
void registerAggregates(sqlite3* connection);

bool isNull(sqlite3_value* value);
bool anyNull(Arguments arguments);
std::string_view textOf(sqlite3_value* value);
double numberOf(sqlite3_value* value);
Value valueOf(sqlite3_value* value);
/// A date in the store's form, in any form that the platform reads, or as a serial number; 13 when it is
/// none.
DateTime dateOf(sqlite3_value* value);

void giveText(sqlite3_context* context, std::string_view text);
void giveDate(sqlite3_context* context, DateTime date);
/// A double that is whole stays a double.
void giveValue(sqlite3_context* context, const Value& value);
void giveBoolean(sqlite3_context* context, bool value);  // -1 and 0
void giveError(sqlite3_context* context, const std::exception& failure);

}  // namespace sqlite
}  // namespace zelkor
