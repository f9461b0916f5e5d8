#include <gtest/gtest.h>

#include <memory>

#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor {
namespace {

struct Close {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};

struct Case {
  const char* expression;
  const char* result;  // as the engine prints it; "~" is Null, "!n" the error n
};

class SqliteFunctionsTest : public testing::Test {
 protected:
  SqliteFunctionsTest() {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    connection.reset(opened);
    registerSqliteFunctions(opened);
  }

  std::string valueOf(const std::string& sql) {
    std::string result = "(no row)";
    char* message = nullptr;
    const auto keep = [](void* target, int, char** cells, char**) {
      *static_cast<std::string*>(target) = cells[0] ? cells[0] : "~";
      return 0;
    };
    if (sqlite3_exec(connection.get(), sql.c_str(), keep, &result, &message) == SQLITE_OK) return result;
    const std::string failure = message;
    sqlite3_free(message);
    return "!" + failure.substr(2, failure.find(':') - 2);
  }

  void expectAll(std::initializer_list<Case> cases) {
    for (const Case& one : cases)
      EXPECT_EQ(valueOf(std::string("SELECT ") + one.expression), one.result) << one.expression;
  }

  std::unique_ptr<sqlite3, Close> connection;
};

TEST_F(SqliteFunctionsTest, Conversions) {
  expectAll({{"zk_val(' 12a')", "12.0"},
             {"zk_val('abc')", "0.0"},
             {"zk_val(7)", "7"},
             {"zk_val(NULL)", "!94"},
             {"zk_clng('2.5')", "2"},
             {"zk_clng('3.5')", "4"},
             {"zk_clng('')", "!13"},
             {"zk_clng('x')", "!13"},
             {"zk_clng(NULL)", "!94"},
             {"zk_clng('3000000000')", "!6"},
             {"zk_cint('32768')", "!6"},
             {"zk_cdbl('1,234.5')", "1234.5"},
             {"zk_ccur(1.00005)", "1.0"},
             {"zk_cstr(0.1+0.2)", "0.3"},
             {"zk_cstr(NULL)", "!94"},
             {"zk_str(5)", " 5"},
             {"zk_cdate('2004-2-30')", "!13"},
             {"zk_cdate('2004年4月1日')", "2004-04-01 00:00:00"},
             {"zk_cdate(38078.5)", "2004-04-01 12:00:00"},
             {"zk_isnumeric('1e3')", "-1"},
             {"zk_isnumeric('')", "0"},
             {"zk_isdate('2004-4-1')", "-1"}});
}

TEST_F(SqliteFunctionsTest, OperatorsLetNullThrough) {
  expectAll({{"zk_number(NULL)", "~"},
             {"zk_number('25')", "25.0"},
             {"zk_number('x')", "!13"},
             {"zk_text(1.50)", "1.5"},
             {"zk_datetext('2004-04-01 00:00:00')", "2004-4-1"},
             {"zk_serial('2004-04-01 12:00:00')", "38078.5"},
             {"zk_date_of_serial(38078.5)", "2004-04-01 12:00:00"},
             {"zk_divide(1,4)", "0.25"},
             {"zk_divide(1,0)", "!11"},
             {"zk_divide(0,0)", "!6"},
             {"zk_divide(NULL,0)", "~"},
             {"zk_integer_divide(4.6,1.5)", "2"},
             {"zk_integer_divide(-7,2)", "-3"},
             {"zk_integer_divide(1,0.4)", "!11"},
             {"zk_modulo(-7,4)", "-3"},
             {"zk_modulo(2.5,2)", "0"},
             {"zk_power(2,10)", "1024.0"},
             {"zk_power(-1,0.5)", "!5"}});
}

TEST_F(SqliteFunctionsTest, AssignmentsStoreNullForWhatDoesNotConvert) {
  expectAll({{"zk_assign_short('2.5')", "2"},
             {"zk_assign_short(40000)", "~"},
             {"zk_assign_long('')", "~"},
             {"zk_assign_long('12x')", "~"},
             {"zk_assign_double('1,000.5')", "1000.5"},
             {"zk_assign_currency(0.00005)", "0.0"},
             {"zk_assign_currency('x')", "~"},
             {"zk_assign_date('2004-4-1 9:05')", "2004-04-01 09:05:00"},
             {"zk_assign_date('2004-04-01 00:00:00')", "2004-04-01 00:00:00"},
             {"zk_assign_date('x')", "~"},
             {"zk_assign_boolean('True')", "-1"},
             {"zk_assign_boolean('0')", "0"},
             {"zk_assign_boolean(NULL)", "0"},
             {"zk_assign_boolean('x')", "0"}});
}

TEST_F(SqliteFunctionsTest, TextsCountCharacters) {
  expectAll({{"zk_left('固定资产',2)", "固定"},
             {"zk_left('ab',9)", "ab"},
             {"zk_left('ab',-1)", "!5"},
             {"zk_right('固定资产',2)", "资产"},
             {"zk_mid('固定资产',2,2)", "定资"},
             {"zk_mid('ab',3)", ""},
             {"zk_mid('ab',0)", "!5"},
             {"zk_instr('固定资产','资')", "3"},
             {"zk_instr('abcB','b')", "2"},
             {"zk_instr(3,'abcB','b')", "4"},
             {"zk_instr('abc','x')", "0"},
             {"zk_left(NULL,1)", "~"},
             {"zk_string(3,'ab')", "aaa"},
             {"zk_format(2.675,'0.00')", "2.68"},
             {"zk_format(NULL,'0.00')", ""},
             {"zk_format_date('2004-04-01 00:00:00','yyyy年mm月dd日')", "2004年04月01日"},
             {"zk_like('a*','ABC')", "1"},
             {"zk_like('a*',NULL)", "~"}});
}

TEST_F(SqliteFunctionsTest, Dates) {
  expectAll({{"zk_year('2004-02-29 00:00:00')", "2004"},
             {"zk_month('2004-4-15')", "4"},
             {"zk_day(NULL)", "~"},
             {"zk_day('x')", "!13"},
             {"zk_dateadd('m',1,'2004-01-31 00:00:00')", "2004-02-29 00:00:00"},
             {"zk_datediff('d','2004-02-28','2004-03-01')", "2"},
             {"zk_datepart('q','2004-05-01')", "2"},
             {"zk_datepart('y','2004-03-01')", "61"},
             {"zk_dateserial(2004,14,0)", "2005-01-31 00:00:00"}});
}

TEST_F(SqliteFunctionsTest, Numbers) {
  expectAll({{"zk_int(-1.5)", "-2.0"},
             {"zk_fix(-1.5)", "-1.0"},
             {"zk_int(7)", "7"},
             {"zk_round(2.5)", "2.0"},
             {"zk_round(0.125,2)", "0.12"},
             {"zk_sgn(-3)", "-1"},
             {"zk_sqr(-1)", "!5"}});
}

TEST_F(SqliteFunctionsTest, AmountsAreAddedExactly) {
  const std::string amounts =
      " FROM (SELECT 0.1 AS m UNION ALL SELECT 0.2 UNION ALL SELECT NULL UNION ALL SELECT -0.3)";
  EXPECT_EQ(valueOf("SELECT zk_sum_currency(m)" + amounts), "0.0");
  EXPECT_EQ(valueOf("SELECT zk_sum_currency(m)" + amounts + " WHERE m > 0"), "0.3");
  EXPECT_EQ(valueOf("SELECT zk_sum_currency(m)" + amounts + " WHERE m > 9"), "~");
  EXPECT_EQ(valueOf("SELECT zk_avg_currency(m)" + amounts + " WHERE m > 0"), "0.15");
  EXPECT_EQ(valueOf("SELECT zk_sum_currency(m) FROM (SELECT 922337203685477.0 AS m UNION ALL SELECT 1)"),
            "!6");
}

TEST_F(SqliteFunctionsTest, FirstAndLastKeepAValue) {
  const std::string rows = " FROM (SELECT 'x' AS t UNION ALL SELECT 'y' UNION ALL SELECT NULL)";
  EXPECT_EQ(valueOf("SELECT zk_first(t)" + rows), "x");
  EXPECT_EQ(valueOf("SELECT zk_last(t)" + rows), "~");
  EXPECT_EQ(valueOf("SELECT zk_first(t)" + rows + " WHERE t > 'z'"), "~");
}

}  // namespace
}  // namespace zelkor
