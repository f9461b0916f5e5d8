#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/dialect/StatementRunner.h"

// Expressions of the dialect, translated and asked of the engine.
namespace zelkor::dialect::test {
namespace {

struct Case {
  const char* expression;
  const char* value;  // as the engine prints it; "~" is Null, "!n" the error n
};

class TranslateExpressionTest : public testing::Test {
 protected:
  std::string valueOf(const std::string& query) {
    try {
      return runner.rows(query);
    } catch (const RuntimeError& error) {
      return "!" + std::to_string(error.number());
    }
  }

  void expectAll(std::initializer_list<Case> cases) {
    for (const Case& one : cases)
      EXPECT_EQ(valueOf(std::string("select ") + one.expression), one.value) << one.expression;
  }

  StatementRunner runner;
};

TEST_F(TranslateExpressionTest, Arithmetic) {
  expectAll({{"3 + 5 - True", "9"}, {"7 Mod 4 + 2", "5"}, {"4.6 \\ 1.5", "2"},   {"2 + 3 \\ 4", "2"},
             {"12 / 3 \\ 2", "2"},  {"30--7", "37"},      {"-2^2", "-4"},        {"7 / 2", "3.5"},
             {"1 / 0", "!11"},      {"7 Mod 0", "!11"},   {"&h1A + 11", "37"},   {"2 * 3 + 4 * 5", "26"},
             {"2 * (3 + 4)", "14"}, {"10 - 4 - 3", "3"},  {"10 - (4 - 3)", "9"}, {"1 + Null", "~"},
             {"-(2 + 3)", "-5"},    {"5 Mod -3", "2"},    {"2.5 Mod 2", "0"},    {"-7.5 \\ 2", "-4"},
             {"8 / (2 * 2)", "2"},  {"-(-5)", "5"},       {"1e3 + 1", "1001"},   {"-True", "1"},
             {"-(1=1)", "1"},       {"5 - -True", "4"},   {"- - 5", "5"}});
}

TEST_F(TranslateExpressionTest, Texts) {
  expectAll({{"1 & 100000", "1100000"},
             {"12 + \"25\"", "37"},
             {"\"foo\" + \"bar\"", "foobar"},
             {"'a' + Null", "~"},
             {"'a' & Null", "a"},
             {"Null & 'b' & 1.50", "b1.5"},
             {"'x' & True", "x-1"},
             {"'x' & #2004-4-1#", "x2004-4-1"},
             {"'12' + 'x'", "12x"},
             {"'x' + 1", "!13"},
             {"'a' & 1 + 2", "a3"},
             {"len('固定 ')", "3"},
             {"mid('固定资产',2,2)", "定资"}});
}

TEST_F(TranslateExpressionTest, Comparisons) {
  expectAll({{"010 = 10", "-1"},
             {"True And Not False", "-1"},
             {"'blah' < 'fuzz'", "-1"},
             {"'blah' Between 'a' And 'z'", "-1"},
             {"'blah' Not Between 'a' And 'z'", "0"},
             {"True Xor False", "-1"},
             {"'abc ' = 'ABC'", "-1"},
             {"'b' > 'A'", "-1"},
             {"'a' In ('b','A ')", "-1"},
             {"'abc' like 'A?C'", "-1"},
             {"Null = Null", "~"},
             {"Null is Null", "-1"},
             {"Not Null", "~"},
             {"1 = 1 = True", "-1"},
             {"2 = '2'", "-1"},
             {"#2004-4-1# = '2004-4-1'", "-1"},
             {"#2004-4-1# < #4/1/2004 12:00:00#", "-1"},
             {"iif(1>2,'a','b')", "b"},
             {"iif(Null,'a','b')", "b"},
             {"isnull(Null)", "-1"}});
}

TEST_F(TranslateExpressionTest, Dates) {
  expectAll({{"#2004-2-28# + 2", "2004-3-1"},
             {"#2004-3-1# - 1.5", "2004-2-28 12:00:00"},
             {"#2004-3-1# - #2004-2-28#", "2"},
             {"year(#2004-3-1#) * 100 + month('2004-3-1')", "200403"},
             {"format(#2004-3-1#,'yyyy.mm')", "2004.03"},
             {"clng(#2004-4-1#)", "38078"},
             {"val('12a') + clng('2.5') + cint(3.5)", "18"},
             {"ccur('1.00005')", "1"},
             {"cdate('2004-2-30')", "!13"}});
}

}  // namespace
}  // namespace zelkor::dialect::test
