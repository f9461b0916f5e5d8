#include <gtest/gtest.h>

#include <array>

#include "base/RuntimeError.h"
#include "store/dialect/StatementRunner.h"

// What translated queries find.
namespace zelkor::dialect::test {
namespace {

struct Case {
  const char* query;
  const char* rows;
};

class TranslateQueryTest : public testing::Test {
 protected:
  TranslateQueryTest() {
    runner.execute("create table a (sID text(10), sName text(20), iLevel short, bEnd bit, mCur currency)");
    runner.execute("create table b (sID text(10), iLevel short)");
    for (const char* values : {"'1','Abc',1,true,0.1", "'2','abd',2,false,0.2", "'3','x*y',2,true,0.3",
                               "'4',null,null,false,null", "'5','固定资产',3,false,10"})
      runner.execute("insert into a (sID,sName,iLevel,bEnd,mCur) values (" + std::string(values) + ")");
    for (const char* values : {"'1',1", "'3',2", "'6',2"})
      runner.execute("insert into b (sID,iLevel) values (" + std::string(values) + ")");
  }

  void expectAll(std::initializer_list<Case> cases) {
    for (const Case& one : cases) EXPECT_EQ(runner.rows(one.query), one.rows) << one.query;
  }

  StatementRunner runner;
};

TEST_F(TranslateQueryTest, Joins) {
  expectAll(
      {{"select a.sID,b.iLevel from a left join b on a.sID=b.sID order by a.sID", "1|1;2|~;3|2;4|~;5|~"},
       {"select a.sID,b.sID from a right join b on a.sID=b.sID order by b.sID", "1|1;3|3;~|6"},
       {"select a.sID from a,b where a.sID=b.sID order by a.sID", "1;3"},
       {"select x.sID from a x inner join (b y inner join a z on y.sID=z.sID) on x.sID=z.sID order by x.sID",
        "1;3"},
       {"select q.n from (select iLevel,count(*) as n from a group by iLevel) q order by q.n desc,q.iLevel",
        "2;1;1;1"}});
}

TEST_F(TranslateQueryTest, Subqueries) {
  expectAll(
      {{"select sID from a where iLevel > all (select iLevel from b) order by sID", "5"},
       {"select sID from a where iLevel = any (select iLevel from b) order by sID", "1;2;3"},
       {"select sID from a where iLevel >= some (select iLevel from b where iLevel=2) order by sID", "2;3;5"},
       {"select sID from a where iLevel > all (select iLevel from b where 1=0) order by sID", "1;2;3;4;5"},
       {"select sID from a where exists (select * from b where b.sID=a.sID) order by sID", "1;3"},
       {"select sID from a where sID not in (select sID from b) order by sID", "2;4;5"},
       {"select sID from a where left(sName,1) in (select 'A' from b) order by sID", "1;2"},
       {"select sID,(select count(*) from b where b.iLevel=a.iLevel) as n from a order by sID",
        "1|1;2|2;3|2;4|0;5|0"}});
}

TEST_F(TranslateQueryTest, GroupsAndTotals) {
  expectAll({{"select iLevel,count(*),count(sName) from a group by iLevel order by iLevel",
              "~|1|0;1|1|1;2|2|2;3|1|1"},
             {"select sum(mCur),avg(mCur),min(mCur),max(sName) from a where sID<'5'", "0.6|0.2|0.1|x*y"},
             {"select sum(bEnd),count(bEnd) from a", "-2|5"},
             {"select first(sID),last(sID) from a", "1|5"},
             {"select left(sName,2) as x,count(*) from a group by left(sName,2) order by count(*) "
              "desc,left(sName,2)",
              "Ab|2;~|1;x*|1;固定|1"},
             {"select iLevel from a group by iLevel having count(*)>1", "2"},
             {"select distinct iLevel from a order by iLevel desc", "3;2;1;~"},
             {"select sum(mCur) from a where sID='nobody'", "~"}});
}

TEST_F(TranslateQueryTest, UnitedRows) {
  expectAll({{"select sID from a where sID<'3' union select sID from b order by sID", "1;2;3;6"},
             {"select sID from a where sID<'3' union all select sID from b order by 1 desc", "6;3;2;1;1"},
             {"select count(*) from (select sName from a where sID='1' union select 'ABC' from b) q", "1"},
             {"select top 1 sID as x from b union select sID from a where sID='5'", "1;5"}});
}

TEST_F(TranslateQueryTest, Conditions) {
  expectAll({{"select sID from a where bEnd order by sID", "1;3"},
             {"select sID from a where not bEnd and iLevel order by sID", "2;5"},
             {"select sID from a where bEnd=true xor iLevel=2 order by sID", "1;2"},
             {"select sID from a where iLevel=2 imp bEnd order by sID", "1;3;5"},
             {"select sID from a where sName like 'AB*' order by sID", "1;2"},
             {"select sID from a where sName not like 'ab*' order by sID", "3;5"},
             {"select sID from a where sName like 'x[*]?'", "3"},
             {"select sID from a where sName like '固定*'", "5"},
             {"select sID from a where sName like '*资*'", "5"},
             {"select sID from a where iLevel like '[12]' order by sID", "1;2;3"},
             {"select sID from a where iLevel<>2 order by sID", "1;5"},
             {"select sID from a where mCur=0.1+0.2", ""},
             {"select sID from a where mCur=ccur(0.1+0.2)", "3"},
             {"select sID from a order by bEnd,sID desc", "3;1;5;4;2"},
             {"select sID from a order by sName desc", "5;3;2;1;4"}});
}

TEST_F(TranslateQueryTest, KeysLeadBackToTheirRows) {
  Shape shape;
  const Translation translation = runner.translated(
      "select a.sName & '!' as x,b.iLevel from a left join b on a.sID=b.sID where a.iLevel=2 order by a.sID",
      shape);
  const std::array<std::size_t, 2> both{0, 1};
  const auto row = runner.engine().prepare(translation.query->rowByKey(both));
  row->bindText(1, "!");
  row->bindInteger(static_cast<int>(translation.slots.size()) + 1, 3);
  row->bindInteger(static_cast<int>(translation.slots.size()) + 2, 2);
  ASSERT_TRUE(row->step());
  EXPECT_EQ(row->text(0), "x*y!");
  EXPECT_EQ(row->integer(1), 2);
  row->reset();
  row->bindNull(static_cast<int>(translation.slots.size()) + 2);
  ASSERT_TRUE(row->step());
  EXPECT_EQ(row->kind(1), CellKind::Null);
  row->reset();
  row->bindInteger(static_cast<int>(translation.slots.size()) + 1, 99);
  EXPECT_FALSE(row->step());
}

}  // namespace
}  // namespace zelkor::dialect::test
