#include <numeric>

#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/StoreFixture.h"

namespace zelkor::test {
namespace {

constexpr int kRows = 4000;

/// A table whose rows hold 1 to kRows, more than a statement fetches at once.
class ServerResultTest : public StoreTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
    db.Execute("CREATE TABLE n (lN LONG, sText TEXT(20))");
    db.Execute("insert into n (lN,sText) values (1,'1')");
    for (int rows = 1; rows < kRows; rows *= 2) {
      const std::string offset = std::to_string(rows);
      db.Execute("insert into n (lN,sText) select lN+" + offset + ",'1' from n where lN+" + offset +
                 "<=" + std::to_string(kRows));
    }
  }

  /// Walks to the end or to a failure; gives how many rows stood where they belong.
  long walk(Recordset& set, const std::function<void(int)>& between) {
    int expected = 1;
    for (; !set.Eof(); ++expected) {
      if (set.Fields(0).number() != expected) break;
      between(expected);
      set.MoveNext();
    }
    return expected - 1;
  }

  void cutConnection() {
    PostgreSqlEngine other(ServerFile::read(path));
    other.prepare(endingSessionsOn("n"))->step();
  }

  static constexpr const char* kKeyed = "select lN from n order by lN";
  static constexpr const char* kUnited = "select lN from n where lN<2 union all select lN from n where lN>=2";
  static constexpr const char* kFailing = "select lN+0/(lN-3500) from n";
};

TEST_F(ServerResultTest, ALongWalkSeesEveryRowWhateverRunsMeanwhile) {
  for (const char* query : {kKeyed, kKeyed, kUnited}) {
    Recordset plain = db.OpenRecordset(query);
    EXPECT_EQ(walk(plain, [](int) {}), kRows);
    Recordset read = db.OpenRecordset(query);
    EXPECT_EQ(walk(read,
                   [&](int n) {
                     if (n % 900 == 0) {
                       EXPECT_EQ(cell("select max(lN) from n"), "4000");
                     }
                   }),
              kRows);
    Recordset written = db.OpenRecordset(query);
    EXPECT_EQ(walk(written,
                   [&](int n) {
                     if (n == 1500) db.Execute("update n set sText='2'");
                   }),
              kRows);
  }
}

// A walk in an order is begun with its first fifty rows.
TEST_F(ServerResultTest, WhatOthersChangeMeanwhileNeitherRepeatsNorHidesARow) {
  PostgreSqlEngine other(ServerFile::read(path));
  Recordset set = db.OpenRecordset(kKeyed);
  std::vector<double> seen;
  for (; !set.Eof(); set.MoveNext()) {
    seen.push_back(set.Fields(0).number());
    if (seen.size() != 50) continue;
    other.run("DELETE FROM n WHERE lN IN (10, 50, 52); UPDATE n SET lN = 3000.0 WHERE lN = 20");
  }
  std::vector<double> expected(kRows);
  std::iota(expected.begin(), expected.end(), 1.0);
  std::erase(expected, 52.0);
  EXPECT_EQ(seen, expected);
}

TEST_F(ServerResultTest, TwoLongWalksGoOnSideBySide) {
  Recordset first = db.OpenRecordset(kKeyed);
  Recordset second = db.OpenRecordset(kUnited);
  EXPECT_EQ(walk(first,
                 [&](int n) {
                   EXPECT_EQ(second.Fields(0).number(), n);
                   second.MoveNext();
                 }),
            kRows);
  EXPECT_TRUE(second.Eof());
}

TEST_F(ServerResultTest, AWalkThatIsLeftLeavesNothingBehind) {
  engine.workspace().BeginTrans();
  db.Execute("update n set sText='3' where lN=7");
  for (const char* query : {kKeyed, kUnited}) EXPECT_EQ(db.OpenRecordset(query).Fields(0).number(), 1);
  db.Execute("update n set sText='4' where lN=8");
  engine.workspace().CommitTrans();
  EXPECT_EQ(cell("select count(*) from n where sText<>'1'"), "2");
}

TEST_F(ServerResultTest, ARowThatCannotBeReadFailsTheMoveThatReachesIt) {
  for (const bool readMeanwhile : {false, true}) {
    Recordset set = db.OpenRecordset(kFailing);
    EXPECT_EQ(errorOf([&] {
                walk(set, [&](int n) {
                  if (readMeanwhile && n == 500) cell("select max(lN) from n");
                });
              }),
              6);
    EXPECT_EQ(set.Fields(0).number(), 3499);
  }
}

TEST_F(ServerResultTest, SuchAFailureUndoesNothingOfATransaction) {
  for (const bool readMeanwhile : {false, true}) {
    engine.workspace().BeginTrans();
    db.Execute("update n set lN=lN where lN=1");
    Recordset set = db.OpenRecordset(kFailing);
    EXPECT_EQ(errorOf([&] {
                walk(set, [&](int n) {
                  if (readMeanwhile && n == 500) cell("select max(lN) from n");
                });
              }),
              6);
    db.Execute("insert into n (lN) values (5000)");
    engine.workspace().CommitTrans();
    EXPECT_EQ(cell("select count(*) from n where lN=5000"), readMeanwhile ? "2" : "1");
  }
}

TEST_F(ServerResultTest, AConnectionCutDuringAWalkIsReported) {
  Recordset set = db.OpenRecordset(
      "select a.lN from n a, n b where a.lN<40 union all select a.lN from n a, n b where a.lN<40");
  EXPECT_EQ(errorOf([&] {
              for (int row = 0; !set.Eof(); set.MoveNext())
                if (++row == 500) cutConnection();
            }),
            57);
  EXPECT_EQ(errorOf([&] { cell("select max(lN) from n"); }), 57);
}

TEST_F(ServerResultTest, AConnectionCutWithinATransactionIsReportedAtEveryStatementAndItsEnd) {
  engine.workspace().BeginTrans();
  db.Execute("insert into n (lN) values (5000)");
  cutConnection();
  for (const int attempt : {1, 2})
    EXPECT_EQ(errorOf([&] { db.Execute("insert into n (lN) values (5001)"); }), 57) << attempt;
  EXPECT_EQ(errorOf([&] { engine.workspace().CommitTrans(); }), 57);
  db.Close();
  db = engine.OpenDatabase(path);
  EXPECT_EQ(cell("select count(*) from n where lN>=5000"), "0");
}

}  // namespace
}  // namespace zelkor::test
