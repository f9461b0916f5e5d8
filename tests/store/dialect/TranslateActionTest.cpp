#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/StatementRunner.h"

// What translated actions leave in the tables.
namespace zelkor::dialect::test {
namespace {

class TranslateActionTest : public testing::Test {
 protected:
  TranslateActionTest() {
    runner.execute(
        "create table k (sID text(10), sName text(20), iShort short, lLong long, dblD double, mCur currency, "
        "dDate datetime, bBit bit)");
    runner.execute("create table other (sID text(10), iLevel short, sText text(20))");
    for (const char* values : {"'1',10,'eins'", "'2',20,'zwei'", "'3',20,'drei'", "'4',30,'vier'"})
      runner.execute("insert into other (sID,iLevel,sText) values (" + std::string(values) + ")");
  }

  int errorOf(std::string_view statement) {
    try {
      runner.execute(statement);
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  }

  StatementRunner runner;
};

struct Stored {
  const char* column;
  const char* value;
  const char* kept;
};

TEST_F(TranslateActionTest, ConstantsAndExpressionsAreConvertedAlike) {
  for (const Stored& one : {
           Stored{"iShort", "'2.5'", "2"},
           Stored{"iShort", "3.5", "4"},
           Stored{"iShort", "40000", "~"},
           Stored{"iShort", "''", "~"},
           Stored{"iShort", "true", "-1"},
           Stored{"lLong", "'12x'", "~"},
           Stored{"lLong", "'1,234'", "1234"},
           Stored{"lLong", "-2.5", "-2"},
           Stored{"lLong", "#2004-4-1#", "38078"},
           Stored{"dblD", "' 1.5 '", "1.5"},
           Stored{"dblD", "'abc'", "~"},
           Stored{"mCur", "0.12345", "0.1234"},
           Stored{"mCur", "'0.12355'", "0.1236"},
           Stored{"dDate", "'2004-4-1'", "2004-4-1"},
           Stored{"dDate", "''", "~"},
           Stored{"dDate", "38078.5", "2004-4-1 12:00:00"},
           Stored{"dDate", "'2004-2-30'", "~"},
           Stored{"bBit", "null", "False"},
           Stored{"bBit", "''", "False"},
           Stored{"bBit", "'True'", "True"},
           Stored{"bBit", "5", "True"},
           Stored{"sName", "12.50", "12.5"},
           Stored{"sName", "#2004-4-1#", "2004-4-1"},
           Stored{"sName", "'it''s'", "it's"},
           Stored{"sName", "'longer than the column of twenty characters'",
                  "longer than the column of twenty characters"},
       }) {
    const std::string column = one.column;
    runner.execute("delete from k");
    runner.execute("insert into k (sID," + column + ") values ('c'," + one.value + ")");
    runner.execute("insert into k (sID) values ('e')");
    // The same value out of a function, so that it is converted where it is stored.
    runner.execute("update k set " + column + "=iif(1=1," + one.value + ",null) where sID='e'");
    EXPECT_EQ(runner.rows("select " + column + " from k where sID='c'"), one.kept)
        << column << " " << one.value;
    EXPECT_EQ(runner.rows("select " + column + " from k where sID='e'"), one.kept)
        << column << " " << one.value;
  }
}

TEST_F(TranslateActionTest, RowsOfAQueryAreMatchedByNameOrByPlace) {
  EXPECT_EQ(runner.execute("insert into k select sText as sName,sID from other where iLevel=20"), 2);
  EXPECT_EQ(runner.rows("select sID,sName from k order by sID"), "2|zwei;3|drei");
  EXPECT_EQ(runner.execute("insert into k (sName,iShort) select sID,sText from other where sID='1'"), 1);
  EXPECT_EQ(runner.rows("select sName,iShort from k where sID is null"), "1|~");
  EXPECT_EQ(errorOf("insert into k select * from other"), 3061);
  EXPECT_EQ(errorOf("insert into k (sID) select sID,sText from other"), 3346);
}

TEST_F(TranslateActionTest, TheFirstRowsBringTheirTies) {
  EXPECT_EQ(runner.execute("insert into k (sID) select top 2 sID from other order by iLevel"), 3);
  EXPECT_EQ(runner.rows("select sID from k order by sID"), "1;2;3");
  EXPECT_EQ(runner.execute("select top 1 sID,iLevel into firsts from other order by iLevel desc"), 1);
  EXPECT_EQ(runner.rows("select sID from other where sID in (select top 2 sID from other order by iLevel "
                        "desc) order by sID"),
            "2;3;4");
  EXPECT_EQ(runner.rows("select count(*) from (select top 2 sID from other) q"), "2");
  EXPECT_EQ(runner.execute("insert into k (iShort) select distinct top 2 iLevel from other order by iLevel"),
            2);
  EXPECT_EQ(runner.rows("select sID from other a where sID=(select top 1 sID from other b where "
                        "b.iLevel=a.iLevel order by b.sID desc) order by sID"),
            "1;3;4");
}

TEST_F(TranslateActionTest, JoinedRowsAreUpdatedAndDeleted) {
  runner.execute("insert into k (sID,sName) select sID,sText from other");
  runner.execute("insert into k (sID,sName) values ('9','neun')");
  EXPECT_EQ(runner.execute("update k a inner join other b on a.sID=b.sID set "
                           "a.lLong=b.iLevel*2,a.sName=b.sText & '!' where b.iLevel>10"),
            3);
  EXPECT_EQ(runner.rows("select sID,sName,lLong from k order by sID"),
            "1|eins|~;2|zwei!|40;3|drei!|40;4|vier!|60;9|neun|~");
  EXPECT_EQ(
      runner.execute("update k a left join other b on a.sID=b.sID set a.sName='allein' where b.sID is null"),
      1);
  EXPECT_EQ(runner.execute("delete a.* from k a inner join other b on a.sID=b.sID where b.iLevel=20"), 2);
  EXPECT_EQ(runner.rows("select sID from k order by sID"), "1;4;9");
  EXPECT_EQ(runner.execute("delete * from k as x where x.sID='9'"), 1);
  EXPECT_EQ(errorOf("update k a inner join other b on a.sID=b.sID set a.sName='x',b.sText='y'"), 3073);
}

TEST_F(TranslateActionTest, ACorrelatedSubqueryLooksAtTheRowBeingUpdated) {
  for (const char* code : {"1", "15", "1501", "2"})
    runner.execute("insert into code (ccode,bend) values ('" + std::string(code) + "',false)");
  EXPECT_EQ(runner.execute("UPDATE code AS s SET s.bend = True WHERE (select count( ccode)  from code d "
                           "where d.ccode like s.ccode +'?*')=0 and s.bend=false"),
            2);
  EXPECT_EQ(runner.rows("select ccode from code where bend order by ccode"), "1501;2");
}

TEST_F(TranslateActionTest, ANewTableBearsNamesTypesAndSizes) {
  runner.execute(
      "insert into fa_ZWVouchers (coutid,md,bvouchedit,doutdate) values ('7',1.5,true,#2004-4-1#)");
  runner.execute(
      "select i_id,coutid,md,bvouchedit,doutdate,left(coutid,1),inid into copied from fa_ZWVouchers");
  const auto table = runner.engine().tableInfo("copied");
  ASSERT_TRUE(table);
  std::string columns;
  for (const ColumnInfo& column : table->columns)
    columns +=
        column.name + " " + std::string(nameOf(column.type)) + " " + std::to_string(column.size) + ", ";
  EXPECT_EQ(columns,
            "i_id counter 0, coutid text 30, md currency 0, bvouchedit boolean 0, doutdate date 0, Expr1005 "
            "text 255, "
            "inid short 0, ");
  EXPECT_EQ(runner.rows("select * from copied"), "1|7|1.5|True|2004-4-1|7|~");
  runner.execute("insert into fa_ItemsManual (sCardNum) values ('1')");
  runner.execute("select * into bare from fa_ItemsManual");
  EXPECT_EQ(runner.execute("insert into bare (sCardNum) values ('1')"), 1) << "indexes do not come along";
  EXPECT_EQ(errorOf("select * into COPIED from other"), 3010);
}

TEST_F(TranslateActionTest, DefinitionsTakeEffect) {
  runner.execute("create unique index sID on k (sID)");
  runner.execute("insert into k (sID) values ('1')");
  EXPECT_EQ(errorOf("insert into k (sID) values ('1')"), 3022);
  EXPECT_EQ(errorOf("insert into k (sName) values ('no key')"), 0);
  EXPECT_EQ(errorOf("insert into k (sName) values ('nor this')"), 0);
  runner.execute("create unique index sID on other (sID)");
  runner.execute("drop index sID on k");
  EXPECT_EQ(errorOf("insert into k (sID) values ('1')"), 0);
  EXPECT_EQ(errorOf("insert into other (sID) values ('1')"), 3022);
  runner.execute("alter table k add column sMore text(30)");
  EXPECT_EQ(errorOf("update k set sMore='x'"), 0);
  runner.execute("alter table k drop column sMore");
  EXPECT_EQ(errorOf("update k set sMore='x'"), 3061);
  runner.execute("create table keyed (a text(5), b long, primary key (a,b))");
  runner.execute("insert into keyed values ('x',1)");
  EXPECT_EQ(errorOf("insert into keyed values ('X',1)"), 3022);
  runner.execute("drop table keyed");
  EXPECT_EQ(errorOf("drop table keyed"), 3376);
}

TEST_F(TranslateActionTest, ALiteralNeverBecomesPartOfTheStatement) {
  EXPECT_EQ(runner.execute("insert into k (sID,sName) values ('q','''); delete from k; --')"), 1);
  EXPECT_EQ(runner.rows("select sName from k where sName='''); delete from k; --'"), "'); delete from k; --");
  EXPECT_EQ(errorOf("insert into k (sID) values ('x'); delete from k"), 3134);
}

}  // namespace
}  // namespace zelkor::dialect::test
