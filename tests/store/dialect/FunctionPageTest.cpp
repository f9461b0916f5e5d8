#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "store/dialect/binding/functions/SqlFunction.h"
#include "support/Paths.h"

// docs/sql-functions.md tells what the functions' rows say. With ZELKOR_REWRITE_GOLDEN set it is written from
// them.
namespace zelkor::dialect::test {
namespace {

std::string argumentWord(char letter) {
  switch (letter) {
    case 't':
      return "text";
    case 'n':
      return "number";
    case 'd':
      return "date";
    default:
      return "value";
  }
}

std::string callOf(const SqlFunction& function) {
  std::string text(function.name);
  std::string separator = "(";
  for (const char letter : function.arguments) {
    text += separator + argumentWord(letter);
    separator = ", ";
  }
  return text + (function.arguments.empty() ? "()" : ")");
}

std::string resultOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
      return "text";
    case ColumnType::Boolean:
      return "yes/no";
    case ColumnType::Short:
      return "16 bits";
    case ColumnType::Long:
      return "32 bits";
    case ColumnType::Double:
      return "double";
    case ColumnType::Currency:
      return "amount";
    case ColumnType::Date:
      return "date";
    default:
      return "as its argument";
  }
}

std::string inFile(const SqlFunction& function) {
  if (function.called.empty()) return "-";
  return "`" + std::string(function.called) + "`";
}

std::string page() {
  std::string text =
      "# SQL functions\n\n"
      "What a statement may call, in a file and on a server alike; any other name is error 3085. What the "
      "engines\n"
      "call is one of their own functions unless its name begins with `zk_`. A new function is one row in\n"
      "`src/store/dialect/binding/functions/`; this page is written from the rows by a test "
      "(`ZELKOR_REWRITE_GOLDEN=1`).\n\n"
      "| call | gives | result | engines call |\n|---|---|---|---|\n";
  for (const SqlFunction* function : sqlFunctions())
    if (!function->name.empty())
      text += "| `" + callOf(*function) + "` | " + std::string(function->meaning) + " | " +
              resultOf(function->result) + " | " + inFile(*function) + " |\n";
  return text;
}

TEST(FunctionPageTest, SaysWhatTheRowsSay) {
  const std::filesystem::path path = zelkor::test::testFolder().parent_path() / "docs" / "sql-functions.md";
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr) {
    std::ofstream(path) << page();
    return;
  }
  std::ostringstream found;
  found << std::ifstream(path).rdbuf();
  EXPECT_EQ(page(), found.str());
}

}  // namespace
}  // namespace zelkor::dialect::test
