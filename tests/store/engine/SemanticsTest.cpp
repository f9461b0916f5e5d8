#include <gmock/gmock.h>

#include "store/StoreFixture.h"

// What the statements rely on, asked of a running engine: the same cases hold for every engine.
namespace zelkor::test {
namespace {

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : ";") + line;
  return text;
}

class StatementTest : public StoreTest {};

TEST_F(StatementTest, ColumnsBesideTotalsMustBeGrouped) {
  db.Execute("CREATE TABLE g (n LONG, s TEXT(20), id LONG)");
  db.Execute("insert into g values (1,'ab',1)");
  EXPECT_EQ(joined(rows("select left(s,1),count(*) from g group by left(s,1)")), "a|1");
  for (const char* query :
       {"select left(s,1),count(*) from g group by left(s,2)", "select s & 'x',count(*) from g group by n",
        "select n,count(*) from g group by n having id>3", "select n,count(*) from g group by n order by id"})
    EXPECT_EQ(errorOf([&] { rows(query); }), 3122) << query;
  EXPECT_EQ(errorOf([&] { rows("select distinct left(s,1) from g order by left(s,2)"); }), 3093);
  EXPECT_EQ(joined(rows("select distinct left(s,2) from g order by left(s,2)")), "ab")
      << "other statements of the shape are right";
}

TEST_F(StatementTest, IndexesAreMadeAndDroppedOnce) {
  db.Execute("CREATE TABLE i (id LONG, s TEXT(20))");
  db.Execute("CREATE INDEX a ON i (id)");
  EXPECT_EQ(errorOf([&] { db.Execute("create index a on i (s)"); }), 3284);
  db.Execute("DROP INDEX a ON i");
  EXPECT_EQ(errorOf([&] { db.Execute("drop index a on i"); }), 3372);
  for (const char* key : {"id+1", "1", "'a'"})
    EXPECT_EQ(errorOf([&] { db.Execute("create index b on i (" + std::string(key) + ")"); }), 3075) << key;
}

TEST_F(StatementTest, AutoNumbersGoOnBehindAGivenValue) {
  db.Execute("CREATE TABLE n (i_id COUNTER, sT TEXT(20))");
  db.Execute("insert into n (sT) values ('a')");
  db.Execute("insert into n (i_id,sT) values (41,'b')");
  db.Execute("insert into n (sT) values ('c')");
  EXPECT_EQ(joined(rows("select i_id, sT from n order by i_id")), "1|a;41|b;42|c");
  db.Execute("insert into n (i_id,sT) values (null,'d')");
  db.Execute("insert into n select null as i_id, 'e' as sT from n where sT='a'");
  Recordset added = db.OpenRecordset("select * from n where sT='d'");
  added.AddNew();
  added.Collect("i_id", Value());
  added.Collect("sT", "f");
  added.Update();
  EXPECT_EQ(joined(rows("select i_id, sT from n where i_id > 42 order by i_id")), "43|d;44|e;45|f");
}

TEST_F(StatementTest, AUniqueIndexTakesSeveralNulls) {
  db.Execute("CREATE TABLE u (sT TEXT(20))");
  db.Execute("CREATE UNIQUE INDEX sT ON u (sT)");
  db.Execute("CREATE TABLE v (sT TEXT(20))");
  db.Execute("CREATE UNIQUE INDEX sT ON v (sT)");  // index names are per table
  db.Execute("insert into u (sT) values (null)");
  db.Execute("insert into u (sT) values (null)");
  EXPECT_EQ(cell("select count(*) from u"), "2");
}

TEST_F(StatementTest, SelectIntoCarriesNamesTypesAndSizes) {
  db.Execute("CREATE TABLE s (sT TEXT(20), bN BIT, dN DATETIME, mN CURRENCY)");
  db.Execute("insert into s values ('x',True,#2004-4-1#,1.25)");
  db.Execute("select * into copy from s");
  db.Execute("insert into copy (sT,bN,dN,mN) values ('y','-1','2005-1-1','1.00005')");
  EXPECT_EQ(joined(rows("select * from copy order by sT")), "x|True|2004-4-1|1.25;y|True|2005-1-1|1");
}

TEST_F(StatementTest, TakesConditionsOfAnyLength) {
  db.Execute("CREATE TABLE n (lN LONG)");
  for (const char* number : {"0", "7", "1999", "2000", "null"}) {
    db.Execute(std::string("insert into n values (") + number + ")");
  }
  for (const int length : {3, 4, 300, 2000}) {
    std::string any = "lN=-1";
    std::string none = "lN<>-1";
    for (int i = 1; i < length; ++i) {
      any += " or lN=" + std::to_string(i);
      none += " and lN<>" + std::to_string(i);
    }
    const std::string found = length == 2000 ? "7;1999" : length == 300 ? "7" : "";
    const std::string left = length == 2000 ? "0;2000" : length == 300 ? "0;1999;2000" : "0;7;1999;2000";
    EXPECT_EQ(joined(rows("select lN from n where lN>6 and (" + any + ") order by lN")), found) << length;
    EXPECT_EQ(joined(rows("select lN from n where " + none + " order by lN")), left) << length;
  }
  std::string deep = "1";
  for (int i = 0; i < 5000; ++i) deep += "+1";
  EXPECT_EQ(errorOf([&] { rows("select lN from n where lN=" + deep); }), 3075) << "a sum is as deep as long";
}

TEST_F(StatementTest, AQuoteBreaksItsStatementAndNothingElseRuns) {
  db.Execute("CREATE TABLE q (sT TEXT(50))");
  EXPECT_EQ(errorOf([&] { db.Execute("insert into q (sT) values ('O'Brien')"); }), 3134);
  EXPECT_EQ(errorOf([&] { db.Execute("update q set sT='O'Brien'"); }), 3075);
  EXPECT_NE(errorOf([&] { db.Execute("insert into q (sT) values ('a'); delete from q"); }), 0);
  EXPECT_EQ(errorOf([&] { db.OpenRecordset("select * from q where sMissing=1"); }), 3061);
  EXPECT_EQ(cell("select count(*) from q"), "0");
}

}  // namespace
}  // namespace zelkor::test
