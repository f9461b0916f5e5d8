#include <optional>

#include "store/engine/BothEngines.h"
#include "store/engine/StatementMaker.h"

// Statements that nobody has thought of, given to a file and to a server: the same rows, or the same failure.
namespace zelkor::test {
namespace {

class ServerAgreementTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
    engines.emplace();
    engines->expectSame(
        "CREATE TABLE p (id LONG, sT TEXT(50), sU TEXT(50), iK SHORT, lN LONG, dblN DOUBLE, mN CURRENCY, dN "
        "DATETIME, bN BIT)");
    engines->expectSame("CREATE TABLE q (id LONG, sT TEXT(50), lN LONG, mN CURRENCY)");
    engines->expectSame("CREATE UNIQUE INDEX id ON p (id)");
    int id = 0;
    for (const char* rest :
         {"'abc','10',1,2,1.5,0.1,#2004-4-1#,true", "'ABC','9',2,-1,2.5,0.2,#2004-2-29#,false",
          "'Abc ','007',0,3,-0.5,0.3,null,true", "'b','x',-1,null,0.1,null,#2003-12-31 23:59:59#,false",
          "'B','',null,2,0.2,1.00005,#2004-4-1 12:00:00#,true", "' b',' 1 ',3,2,null,-5,#2004-12-31#,false",
          "'固定','固定资产',100,1000,1e10,123456.7891,#1899-12-30 6:00:00#,true",
          "'固 定','资',7,7,7.77,7.7777,#2000-1-1#,false", "'Ａ','ａ',null,null,null,null,null,false",
          "'','1,234',32767,2147483647,1e15,900000000000,#9999-12-31#,true",
          "null,null,-32768,-2147483648,-1e15,-0.0001,#100-1-1#,true",
          "'x y','1e3',5,5,0.333333333333333,0.3333,#2004-4-1#,false", "'a*c','&H1F',4,1,4,4,#2004-4-2#,true",
          "'ab%','2004-4-1',4,1,4,4,#2004-4-3#,false", "'10','12/31/2003',2,2,2,2,#2004-5-1#,true",
          "'9','￥5',2,2,2,2,#2004-5-1#,true"})
      engines->expectSame("insert into p values (" + std::to_string(++id) + "," + rest + ")");
    for (const char* row : {"1,'ABC',2,0.1", "3,'固定',3,0.3", "5,'b',2,1", "5,'x',null,null",
                            "20,null,7,7.7777", "7,'9',1000,3"})
      engines->expectSame("insert into q values (" + std::string(row) + ")");
  }

  std::optional<BothEngines> engines;
};

TEST_F(ServerAgreementTest, QueriesGiveTheSame) {
  StatementMaker maker(20040401);
  for (int i = 0; i < 640; ++i) engines->expectSame(maker.query());
  EXPECT_GT(engines->succeeded(), 450);
}

TEST_F(ServerAgreementTest, ActionsLeaveTheSame) {
  StatementMaker maker(20041231);
  for (int i = 0; i < 250; ++i) {
    engines->expectSame(maker.action());
    engines->expectSame("select * from p order by id");
  }
  EXPECT_GT(engines->succeeded(), 450);
}

TEST_F(ServerAgreementTest, TextsFallIntoTheSameGroups) {
  for (const char* query :
       {"select sT,count(*) from p group by sT",

        "select ucase(sT) from p union select ucase(sT) from q",
        "select sT from p union all select sT from q", "select max(sT),min(sT),max(sU),min(sU) from p",
        "select sT from p order by sT", "select sT from p order by sT desc,id",
        "select top 2 sT from p order by sT", "select sU from p where sU >= 'ａ'",
        "select first(sT),last(sT) from p",
        "select sT,sum(mN) from p group by sT having sum(mN)>1 order by sum(mN)",
        "select count(*) from p where sT='abc '", "select id from p where sT in ('b ','B')",
        "select id from p where sT<>'b'", "select lN from p union select ucase(sT) from p",
        "select dN from p union select 'x' from p", "select * from p", "select id from p where sT>'a'",
        "select p.id,q.id from p,q where p.lN=q.lN",

        "select lN,count(*) from p group by lN"})
    engines->expectSame(query);
}

TEST_F(ServerAgreementTest, RefusalsAreTheSame) {
  for (const char* statement : {"select nothing from p",
                                "select p.nothing from p",
                                "select * from nothing",
                                "update p set nothing=1",
                                "insert into p (nothing) values (1)",
                                "insert into p values (1,2)",
                                "insert into nothing values (1)",
                                "delete from nothing",
                                "insert into p (id) values (1)",
                                "update p set id=2 where id=1",
                                "update p set id=1",
                                "insert into p (id) select id from p",
                                "select * into q from p",
                                "CREATE TABLE p (a LONG)",
                                "DROP TABLE nothing",
                                "CREATE INDEX id ON p (lN)",
                                "CREATE INDEX x ON nothing (a)",
                                "CREATE INDEX x ON p (nothing)",
                                "DROP INDEX x ON p",
                                "ALTER TABLE nothing ADD COLUMN a LONG",
                                "ALTER TABLE p ADD COLUMN lN LONG",
                                "ALTER TABLE p DROP COLUMN nothing",
                                "CREATE UNIQUE INDEX lN ON p (lN)",
                                "select none(1) from p",
                                "select id from p where",
                                "select 'a from p",
                                "update p set sT='O'Brien'",
                                "select id from p group by lN",
                                "select sum(id) from p where sum(id)>1",
                                "select p.id,q.id from p,q where id=1",
                                "select left(sT,-1) from p",
                                "select id from p union select id,lN from p",
                                "select id from p where id in (select id,lN from p)",
                                "select cdate('x') from p",
                                "select id from p where dN=#2004-13-45#",

                                "select * from p where sT like 5",
                                "insert into p (id) values ('x')",
                                "update p set dN='someday' where id=1"}) {
    engines->expectSame(statement);
    engines->expectSame("select * from p order by id");
  }
}

}  // namespace
}  // namespace zelkor::test
