#include <gmock/gmock.h>

#include <array>
#include <sstream>

#include "store/accountset/DataFile.h"
#include "store/accountset/Renewal.h"
#include "store/StoreFixture.h"
#include "support/AccountSetCopy.h"
#include "support/OlderBooks.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kLayoutInFile = R"(
  SELECT m.name || '.' || c.cid || c.name || ' ' || c.type || c."notnull" || coalesce(c.dflt_value, '')
  FROM sqlite_master m, pragma_table_info(m.name) c WHERE m.type = 'table'
  UNION ALL SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY 1)";
constexpr const char* kLayoutOnServer = R"(
  SELECT c.relname || '.' || row_number() OVER (PARTITION BY c.oid ORDER BY a.attnum) || a.attname || ' ' ||
    a.atttypid::regtype || a.attnotnull || coalesce(pg_get_expr(d.adbin, d.adrelid), '') ||
    coalesce(col_description(c.oid, a.attnum), '')
  FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped
  LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum
  WHERE c.relkind = 'r' AND c.relnamespace = current_schema()::regnamespace AND a.attname <> 'zk_row'
  UNION ALL SELECT indexdef FROM pg_indexes WHERE schemaname = current_schema() ORDER BY 1)";

/// Every column and every index of a file as its engine keeps them.
std::vector<std::string> layoutOf(const std::string& path) {
  const auto engine = openDataFile(path);
  const auto query = engine->prepare(onServer() ? kLayoutOnServer : kLayoutInFile);
  std::vector<std::string> lines;
  while (query->step()) lines.emplace_back(query->text(0));
  return lines;
}

/// An account set of the first revision.
class RenewalTest : public testing::Test {
 protected:
  void SetUp() override { makeOlder(home.path(), 1); }

  static int revisionOf(const std::string& file) { return openDataFile(file)->booksRevision(); }
  static void setRevision(const std::string& file, int revision) {
    openDataFile(file)->setBooksRevision(revision);
  }
  std::vector<std::string> rows(const std::string& query) {
    return rowsOf(DbEngine(notices).OpenDatabase(data).OpenRecordset(query));
  }
  void execute(const std::string& statement) { DbEngine(notices).OpenDatabase(data).Execute(statement); }
  /// The error of a use of the first column that is called `dblDeprWorkThisYear`.
  std::string refusal(const std::string& query) {
    return refusalOf([&] {
      DbEngine engine(notices);
      engine.OpenDatabase(data).OpenRecordset(query).Fields("dblDeprWorkThisYear");
    });
  }

  TempDir home;
  AccountSetCopy files{home.path()};
  const std::string data = (home / "ZkData.Mdb").string();
  const std::string system = (home / "ZkSystem.Mdb").string();
  std::ostringstream notices;
};

TEST_F(RenewalTest, ASetOfEachRevisionComesToTheLayoutOfANewOne) {
  ASSERT_EQ(stepsBack().size(), static_cast<std::size_t>(currentRevision() - 1));
  const TempDir today;
  const AccountSetCopy newSet(today.path());
  for (const StepBack& step : stepsBack()) {
    SCOPED_TRACE(step.to);
    const TempDir older;
    const AccountSetCopy olderSet(older.path());
    makeOlder(older.path(), step.to);
    for (const char* file : kAccountSetFiles) {
      const std::string path = older / file;
      EXPECT_EQ(layoutOf(path) == layoutOf(today / file), file == std::string("ZkSystem.Mdb"));
      const Renewal renewal = renewBooks(path);
      EXPECT_EQ(renewal.before, step.to);
      EXPECT_EQ(renewal.after, currentRevision());
      EXPECT_EQ(renewal.functions, onServer());
      EXPECT_EQ(layoutOf(path), layoutOf(today / file));
      EXPECT_EQ(revisionOf(path), currentRevision());
      EXPECT_TRUE(renewBooks(path).changedNothing());
    }
  }
}

// What each kind of step makes is what a new set has: defaults, the indexes by number, the template's column.
TEST_F(RenewalTest, AStepMakesWhatTheCatalogueSays) {
  renewBooks(data);
  const std::vector<std::string> today = layoutOf(data);
  execute("insert into fa_WorkLoad_Detail (sCardNum) values ('00001')");
  for (const char* statement : {"alter table AccInformation drop column bEnable",
                                "alter table ZKFA_Model_AccInformation_Init drop column bEnable",
                                "alter table fa_WorkLoad_Detail drop column dblDeprWorkThisYear",
                                "drop table fa_Cards_Detail", "drop index lOptID on fa_Cards"})
    execute(statement);
  const int last = currentRevision();
  setRevision(data, last - 1);
  const std::array steps{
      RevisionStep{last - 1, "drop table fa_Cards"},  // was made already
      RevisionStep{last, "AccInformation.bEnable"},
      RevisionStep{last, "fa_WorkLoad_Detail.dblDeprWorkThisYear"},
      RevisionStep{last, "za_account.iMonth"},  // in the other file
      RevisionStep{last, "fa_Cards_Detail"},
      RevisionStep{last, "fa_Cards.sCardID"},  // is there
      RevisionStep{last, "CREATE INDEX lOptID ON fa_Cards (lOptID)"},
      RevisionStep{last, "update AccInformation set bEnable=True where cName='dStartDate'"},
  };
  const Renewal renewal = renewBooks(data, steps);
  EXPECT_EQ(renewal.after, last);
  EXPECT_THAT(renewal.changes, ElementsAre(steps[1].change, steps[2].change, steps[4].change, steps[6].change,
                                           steps[7].change));
  EXPECT_EQ(layoutOf(data), today);
  EXPECT_EQ(rows("select dblDeprWorkThisYear from fa_WorkLoad_Detail"), std::vector<std::string>{"0"});
  EXPECT_EQ(rows("select count(*) from AccInformation where bEnable=True"), std::vector<std::string>{"1"});
}

TEST_F(RenewalTest, AColumnKeepsTheIndexesThatOrderItByNumber) {
  const auto engine = openDataFile(data);
  engine->run("DROP INDEX zk_number_fa_zwvouchers_coutid; DROP INDEX zk_odd_fa_zwvouchers_coutid");
  execute("drop index coutid on fa_ZWVouchers");
  execute("alter table fa_ZWVouchers drop column coutid");
  renewBooks(data, std::array{RevisionStep{2, "fa_ZWVouchers.coutid"}});
  EXPECT_TRUE(engine->tableInfo("fa_ZWVouchers")->find("coutid")->orderedAsNumber);
}

// A key that the rows do not allow, in the midst of the steps.
TEST_F(RenewalTest, AStepThatFailsLeavesTheBooksAsTheyWere) {
  execute("insert into fa_Cards (sCardID, sCardNum) values ('1', '00001')");
  execute("insert into fa_Cards (sCardID, sCardNum) values ('2', '00001')");
  const std::vector<std::string> before = layoutOf(data);
  const std::array steps{RevisionStep{2, "CREATE INDEX sCardNum ON fa_Cards (sCardNum)"},
                         RevisionStep{3, "CREATE UNIQUE INDEX once ON fa_Cards (sCardNum)"}};
  EXPECT_THAT(refusalOf([&] { renewBooks(data, steps); }),
              HasSubstr("3022 更新步骤“CREATE UNIQUE INDEX once ON fa_Cards (sCardNum)”：由于将在索引"));
  EXPECT_EQ(layoutOf(data), before);
  EXPECT_EQ(revisionOf(data), 0);
  EXPECT_FALSE(openDataFile(data)->hasOwnFunctions() && onServer());
}

TEST_F(RenewalTest, OlderBooksAreUsedAndSayOnceHowToRenew) {
  {
    DbEngine engine(notices);
    Database books = engine.OpenDatabase(data);
    engine.OpenDatabase(system);
    books.Execute("insert into fa_Cards (sCardID, sCardNum) values ('1', '00001')");
    EXPECT_EQ(rowsOf(books.OpenRecordset("select max(val(sCardID)) from fa_Cards")),
              std::vector<std::string>{"1"});
  }
  EXPECT_EQ(notices.str(), "账套文件 '" + data + "' 是旧版本（版本 1，本程序的版本是 " +
                               std::to_string(currentRevision()) +
                               "）；请由管理员运行 zelkorctl renew 更新账套的两个数据文件。"
                               "更新之前可以照常使用。\n");
  notices.str("");
  renewBooks(data);
  renewBooks(system);
  DbEngine(notices).OpenDatabase(data);
  DbEngine(notices).OpenDatabase(system);
  // A file of somebody else has no books to be renewed.
  const std::string other = makeEmptyDataFile(home.path());
  setRevision(other, 0);
  DbEngine(notices).OpenDatabase(other);
  EXPECT_EQ(notices.str(), "");
}

TEST_F(RenewalTest, WhatOlderBooksDoNotHaveIsNamedWithTheCure) {
  execute("alter table fa_WorkLoad_Detail drop column dblDeprWorkThisYear");
  execute("drop table fa_JKSet");
  for (const auto& [query, reason] :
       {std::pair{"select dblDeprWorkThisYear from fa_WorkLoad_Detail",
                  "3061 参数不足，期待是 1。（dblDeprWorkThisYear）"},
        {"select * from fa_WorkLoad_Detail", "3265 在此集合中没有找到项目。（dblDeprWorkThisYear）"},
        {"select * from fa_JKSet", "3078 数据库引擎找不到输入表或查询 'fa_JKSet'。"}}) {
    EXPECT_THAT(refusal(query), testing::AllOf(HasSubstr(reason), HasSubstr("zelkorctl renew"))) << query;
    setRevision(data, currentRevision());
    if (!onServer()) {
      EXPECT_THAT(refusal(query), Not(HasSubstr("zelkorctl renew"))) << query;
    }
    setRevision(data, 0);
  }
}

TEST_F(RenewalTest, BooksOfANewerProgramAreRefusedWithBothNumbers) {
  const std::string ours = std::to_string(currentRevision());
  setRevision(data, currentRevision() + 1);
  const std::string refused = "3343 账套文件 '" + data + "' 的版本是 " +
                              std::to_string(currentRevision() + 1) + "，本程序只能使用到版本 " + ours +
                              "；请先更新本程序。";
  EXPECT_EQ(refusalOf([&] { DbEngine().OpenDatabase(data); }), refused);
  EXPECT_EQ(refusalOf([&] { openDataFileForReading(data); }), refused);
  EXPECT_EQ(refusalOf([&] { renewBooks(data); }), refused);
}

class ServerFunctionsRenewalTest : public RenewalTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "a file has no functions";
  }
  void run(const std::string& sql) const { openDataFile(data)->run(sql); }
};

TEST_F(ServerFunctionsRenewalTest, OlderOnesAreNamedAndReplaced) {
  run("DROP FUNCTION zk_val(text); DROP TRIGGER zk_counter_null ON fa_cards_detail; "
      "COMMENT ON FUNCTION zk_describe(text, text[]) IS '2'");
  const char* numbers = "select sCardID from fa_Cards where val(sStyle)=1";
  EXPECT_THAT(refusal(numbers),
              testing::AllOf(HasSubstr("3085 表达式中 'zk_val' 函数未定义。"), HasSubstr("zelkorctl renew")));
  EXPECT_THAT(notices.str(), HasSubstr("账套文件 '" + data + "' 在服务器上的函数是旧版本；请由管理员"));
  const Renewal renewal = renewBooks(data);
  EXPECT_TRUE(renewal.functions);
  EXPECT_THAT(renewal.changes, IsEmpty());
  EXPECT_THAT(rows(numbers), IsEmpty());
  execute("insert into fa_Cards_Detail (sID, sCardID) values (null, '1')");
  EXPECT_THAT(rows("select sID from fa_Cards_Detail"), ElementsAre("1"));
}

// Workstations that are not updated yet go on, and do not put theirs back.
TEST_F(ServerFunctionsRenewalTest, NewerOnesStay) {
  run("DO $$ BEGIN EXECUTE format('COMMENT ON FUNCTION zk_describe(text, text[]) IS %L', "
      "'c0ffee ' || obj_description('zk_describe(text, text[])'::regprocedure, 'pg_proc')); END $$");
  EXPECT_TRUE(renewBooks(data).changedNothing());
  DbEngine(notices).OpenDatabase(data);
  EXPECT_EQ(notices.str(), "");
}

TEST_F(RenewalTest, OnlyBooksAreRenewed) {
  const std::string other = makeEmptyDataFile(home.path(), "Other.Mdb");
  EXPECT_EQ(refusalOf([&] { renewBooks(other); }), "3343 文件 '" + other + "' 中没有账套的表，不能更新。");
}

}  // namespace
}  // namespace zelkor::test
