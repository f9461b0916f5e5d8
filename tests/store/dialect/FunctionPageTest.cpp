#include <map>

#include "store/dialect/binding/functions/SqlFunction.h"
#include "support/Golden.h"

// docs/sql-functions.md says what the functions' rows say. With ZELKOR_REWRITE_GOLDEN set it is written from
// them.
namespace zelkor::dialect::test {
namespace {

const std::map<char, std::string> kArguments{{'t', "text"}, {'n', "number"}, {'d', "date"}};
const std::map<ColumnType, std::string> kResults{
    {ColumnType::Text, "text"},    {ColumnType::Boolean, "yes/no"}, {ColumnType::Short, "16 bits"},
    {ColumnType::Long, "32 bits"}, {ColumnType::Double, "double"},  {ColumnType::Currency, "amount"},
    {ColumnType::Date, "date"}};

template <typename Key>
std::string wordOf(const std::map<Key, std::string>& words, Key key, const std::string& otherwise) {
  const auto word = words.find(key);
  return word == words.end() ? otherwise : word->second;
}

std::string lineOf(const SqlFunction& function) {
  std::string arguments;
  for (const char letter : function.arguments)
    arguments += (arguments.empty() ? "" : ", ") + wordOf(kArguments, letter, "value");
  const std::string called(function.called);
  return "| `" + std::string(function.name) + "(" + arguments + ")` | " + std::string(function.meaning) +
         " | " + wordOf(kResults, function.result, "as its argument") + " | " +
         (called.empty() ? "-" : "`" + called + "`") + " |\n";
}

TEST(FunctionPageTest, SaysWhatTheRowsSay) {
  std::string page =
      "# SQL functions\n\n"
      "What a statement may call, in a file and on a server alike; any other name is error 3085. What the "
      "engines\n"
      "call is one of their own functions unless its name begins with `zk_`. A new function is one row in\n"
      "`src/store/dialect/binding/functions/`; this page is written from the rows by a test "
      "(`ZELKOR_REWRITE_GOLDEN=1`).\n\n"
      "| call | gives | result | engines call |\n|---|---|---|---|\n";
  for (const SqlFunction* function : sqlFunctions())
    if (!function->name.empty()) page += lineOf(*function);
  zelkor::test::expectGolden("../docs/sql-functions.md", page);
}

}  // namespace
}  // namespace zelkor::dialect::test
