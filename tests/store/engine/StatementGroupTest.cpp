#include <chrono>
#include <thread>

#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/StatementGroupFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using std::chrono::steady_clock;

/// How many sessions of this program wait for somebody's lock.
constexpr const char* kWaiting =
    "SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' AND application_name = "
    "current_setting('application_name')";

std::string firstCell(Engine& other, const char* query) {
  const auto statement = other.prepare(query);
  return statement->step() ? std::string(statement->text(0)) : "";
}

TEST_F(StatementGroupTest, EachSeesWhatThoseBeforeItHaveWritten) {
  const std::uint64_t before = db.waits();
  Lines seen;
  StatementGroup group(db);
  for (const char* num : {"1", "2", "3"}) {
    group.execute(sql("insert into t (sNum,lN) values ('", num, "',", num, ")"));
    group.open("select sum(lN) as a from t", [&](const Recordset& sum) { seen.push_back(sum.Text("a")); });
  }
  group.run();
  EXPECT_EQ(seen, (Lines{"2", "4", "7"}));
  if (onServer()) {
    EXPECT_EQ(db.waits() - before, 3U) << "the columns of the table, the group, and its end";
  }
}

TEST_F(StatementGroupTest, AFailureLeavesWhatOneByOneLeaves) {
  for (const auto& bad : casesIn("store/engine/bad-statements.txt")) {
    const Lines statements{"insert into t (sNum,lN) values ('a',1)", "update t set lN=lN+1 where sNum='a'",
                           bad[1], "insert into t (sNum,lN) values ('b',2)"};
    inEachWay([&] {
      const Lines expected = outcome(statements, [this](const Lines& all) { oneByOne(all); });
      EXPECT_EQ(outcome(statements, [this](const Lines& all) { together(all); }), expected) << bad[1];
      EXPECT_TRUE(expected.front().starts_with(bad[0])) << expected.front();
      EXPECT_EQ(expected.size(), 3U) << bad[1];
    });
  }
}

TEST_F(StatementGroupTest, AUseThatRaisesComesBeforeWhatFollowsIt) {
  db.Execute("insert into u (sNum,lN) values ('x',0)");
  inEachWay([this] {
    int used = 0;
    StatementGroup group(db);
    const auto adding = [&](const char* num) {
      group.execute(sql("insert into t (sNum,lN) values ('", num, "',1)"));
    };
    const auto reading = [&](double most) {
      group.open("select sNum from u order by sNum", [&used, most](Recordset& rows) {
        for (; !rows.Eof(); rows.MoveNext()) used += static_cast<int>(rows.Text("sNum").size());
        if (used > most) throw RuntimeError(ErrorNumber::Overflow);
      });
    };
    EXPECT_EQ(errorOf([&] {
                adding("1");
                reading(100);
                adding("2");
                reading(1);
                adding("3");
                group.run();
              }),
              6);
    EXPECT_EQ(used, onServer() ? 18 : 12) << "the one that raises is called again";
    EXPECT_EQ(rows("select sNum from t order by sNum"), (Lines{"1", "2", "taken"}));
    group.run();
    EXPECT_EQ(cell("select count(*) from t"), "3") << "nothing is left of the group";
    db.Execute("delete from t where sNum<>'taken'");
  });
}

TEST_F(StatementGroupTest, AUseMayPassOverAFailureOfItsOwn) {
  db.Execute("insert into u (sNum,lN) values ('x',0)");
  inEachWay([this] {
    int failure = 0;
    StatementGroup group(db);
    group.execute("insert into t (sNum,lN) values ('1',1)");
    group.open("select sNum from u where sNum='x'", [&](const Recordset&) {
      failure = errorOf([&] { db.OpenRecordset("select 1/(lN-lN) as a from u where sNum='x'").Fields("a"); });
    });
    group.execute("insert into t (sNum,lN) values ('2',1)");
    group.run();
    EXPECT_EQ(failure, 11);
    EXPECT_EQ(errorOf([&] { db.Execute("insert into t (sNum,lN) values ('taken',1)"); }), 3022);
    EXPECT_EQ(rows("select sNum from t order by sNum"), (Lines{"1", "2", "taken"}));
    db.Execute("delete from t where sNum<>'taken'");
  });
}

// What has been written is kept when the rows before it have been used.
TEST_F(StatementGroupTest, WaitsTwiceOnlyWhereSomethingIsWrittenBehindAUse) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  for (const char* table : {"t", "u"}) rows(sql("select sNum from ", table));
  const auto waitsOf = [this](const std::function<void(StatementGroup&)>& add) {
    const std::uint64_t before = db.waits();
    StatementGroup group(db);
    add(group);
    group.run();
    return db.waits() - before;
  };
  constexpr const char* kWrite = "update t set lN=lN+1";
  constexpr const char* kQuery = "select sNum from u";
  const auto use = [](const Recordset&) {};
  EXPECT_EQ(waitsOf([&](StatementGroup& group) {
              group.execute(kWrite);
              group.addRows("select top 1 * from t", 2, [](Recordset& row, std::size_t i) {
                row.AddNew();
                row.Collect("sNum", static_cast<std::int32_t>(i));
              });
              group.open(kQuery, use);
            }),
            1U);
  EXPECT_EQ(waitsOf([&](StatementGroup& group) {
              group.open(kQuery, use);
              group.execute(kWrite);
            }),
            2U);
}

TEST_F(StatementGroupTest, ReadingEndsWhatWasKeptTogether) {
  {
    const KeptTogether together = db.keepTogether();
    db.Execute("update t set lN=2");
  }
  StatementGroup group(db);
  for (const char* table : {"t", "u"})
    group.open(sql("select sNum from ", table), [](const Recordset& row) { row.Text("sNum"); });
  group.run();
  if (onServer()) {
    DbEngine desk;
    EXPECT_EQ(rowsOf(desk.OpenDatabase(path).OpenRecordset("select lN from t")), Lines{"2"});
  }
}

/// Another's lock on the row "taken", for as long as it lives or until it is given up.
class HeldRow {
 public:
  explicit HeldRow(const std::string& path) : db_(engine_.OpenDatabase(path)) {
    engine_.workspace().BeginTrans();
    db_.Execute("update t set lN=50 where sNum='taken'");
  }
  void giveUp() { engine_.workspace().CommitTrans(); }

 private:
  DbEngine engine_;
  Database db_;
};

// A group that meets a lock goes one by one, holding nothing but what somebody has held before.
TEST_F(StatementGroupTest, AGroupThatWaitsForALockHoldsNobodyUp) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  for (const bool goesAway : {true, false}) {
    db.Execute("insert into t (sNum,lN) values ('early',1)");
    HeldRow lock(path);
    std::string refusal;
    const auto begin = steady_clock::now();
    std::thread working([&] {
      DbEngine own;
      Database data = own.OpenDatabase(path);
      StatementGroup group(data);
      for (const char* num : {"early", "taken", "late"})
        group.execute(num == std::string("late") ? "insert into t (sNum,lN) values ('late',1)"
                                                 : sql("update t set lN=lN+1 where sNum='", num, "'"));
      refusal = refusalOf([&] { group.run(); });
    });
    PostgreSqlEngine other(ServerFile::read(path));
    while (firstCell(other, kWaiting) == "0" && steady_clock::now() - begin < std::chrono::seconds(8)) {
    }
    const auto asked = steady_clock::now();
    db.Execute("update t set lN=lN+100 where sNum='early'");
    EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(2));
    if (goesAway) lock.giveUp();
    working.join();
    EXPECT_TRUE(refusal.starts_with(goesAway ? "(none)" : "3045")) << refusal;
    EXPECT_LT(steady_clock::now() - begin, std::chrono::seconds(15)) << "waited for once";
    EXPECT_EQ(rows("select sNum,lN from t order by sNum"),
              goesAway ? (Lines{"early|102", "late|1", "taken|51"}) : (Lines{"early|102", "taken|51"}));
    db.Execute("delete from t where sNum<>'taken'");
  }
}

// By recordsets, one of which a unique index refuses.
TEST_F(StatementGroupTest, RowsThatAreAddedComeInTheirPlace) {
  for (const char* table : {"select * from t", "select top 1 * from t", "select * from t where 1=0"}) {
    for (const bool refused : {false, true}) {
      const auto addAll = [&](const Lines& nums) {
        StatementGroup group(db);
        group.runAll([&] {
          group.execute("insert into t (sNum,lN) values ('a',1)");
          group.addRows(table, nums.size(), [&](Recordset& row, std::size_t i) {
            row.AddNew();
            row.Collect("sNum", nums[i]);
            row.Collect("lN", static_cast<std::int32_t>(i));
          });
          group.execute("update t set lN=lN+10 where sNum<>'taken'");
        });
      };
      const Lines nums = refused ? Lines{"b", "taken", "c"} : Lines{"b", "c"};
      const Lines expected =
          refused ? Lines{"a|1", "b|0", "taken|1"} : Lines{"a|11", "b|10", "c|11", "taken|1"};
      Lines left = outcome(nums, addAll);
      EXPECT_EQ(left.front().substr(0, 4), refused ? "3022" : "(non") << left.front();
      left.erase(left.begin());
      EXPECT_EQ(left, expected) << table;
    }
  }
}

TEST_F(StatementGroupTest, AGroupMayChangeTablesInItsMiddle) {
  together({"insert into t (sNum,lN) values ('1',1)", "select * into v from t",
            "insert into v (sNum,lN) values ('2',2)", "insert into t (sNum,lN) values ('3',3)"});
  EXPECT_EQ(rows("select sNum from v order by sNum"), (Lines{"1", "2", "taken"}));
  EXPECT_EQ(rows("select sNum from t order by sNum"), (Lines{"1", "3", "taken"}));
}

TEST_F(StatementGroupTest, AConnectionThatIsCutEndsTheGroup) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  for (const bool inTransaction : {false, true}) {
    if (inTransaction) engine.workspace().BeginTrans();
    const Lines statements{"insert into t (sNum,lN) values ('1',1)", "update t set lN=lN+1",
                           "insert into t (sNum,lN) values ('2',2)"};
    db.Execute("update t set lN=5 where sNum='taken'");
    PostgreSqlEngine other(ServerFile::read(path));
    other.prepare(endingSessionsOn("t"))->step();
    EXPECT_EQ(errorOf([&] { together(statements); }), 57);
    EXPECT_EQ(errorOf([&] { together(statements); }), 57);
    Lines told;
    askEach(
        db, Lines(3, "select sNum from t"), [](std::size_t, const Recordset&) {},
        [&](const RuntimeError& error) { told.push_back(std::to_string(error.number())); });
    EXPECT_EQ(told, Lines{"57"}) << "once for all";
    if (inTransaction) {
      EXPECT_EQ(errorOf([&] { engine.workspace().CommitTrans(); }), 57);
    }
    db.Close();
    db = engine.OpenDatabase(path);
    EXPECT_EQ(rows("select sNum from t"), Lines{"taken"});
  }
}

}  // namespace
}  // namespace zelkor::test
