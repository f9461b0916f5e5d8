#include <gmock/gmock.h>

#include "store/StoreFixture.h"

// What the statements rely on, asked of a running engine: the same cases hold for every engine.
namespace zelkor::test {
namespace {

struct Case {
  const char* name;
  const char* query;
  const char* rows;  // rows joined by ";", cells by "|", Null "~"
};

template <typename Named>
std::string caseName(const testing::TestParamInfo<Named>& tested) {
  return tested.param.name;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : ";") + line;
  return text;
}

class SemanticsTest : public StoreTest, public testing::WithParamInterface<Case> {
 protected:
  void SetUp() override {
    db.Execute(
        "CREATE TABLE k (sID TEXT(20), sText TEXT(50), dblN DOUBLE, lN LONG, mN CURRENCY, bN BIT, dN "
        "DATETIME)");
    for (const char* values :
         {"'9','abc',1.5,1,0.1,True,#2004-2-29#", "'10','ABD',2.5,2,0.2,False,#2004-12-31 23:59:59#",
          "'2','a*c',-1,3,0.3,True,#2005-1-1#", "'1','a_c',0,null,null,False,null",
          "'100',null,null,5,1,False,null"})
      db.Execute("insert into k values (" + std::string(values) + ")");
  }
};

TEST_P(SemanticsTest, Query) {
  EXPECT_EQ(joined(rows(GetParam().query)), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    Text, SemanticsTest,
    testing::Values(
        Case{"EqualsIsCaseBlind", "select sID from k where sText='ABC'", "9"},
        Case{"BlanksAtTheEndOfALiteralDoNotCount", "select sID from k where sText='abc  '", "9"},
        Case{"NorInAList", "select sID from k where sText in ('ABD ','zzz')", "10"},
        Case{"NorInUnequal", "select count(*) from k where sText<>'abc '", "3"},
        Case{"BlanksAtTheEndOfAColumn",
             "select count(*) from (select sText & ' ' as t from k where sID='9') q where t='abc '", "1"},
        Case{"BlanksAtTheEndUnequal",
             "select count(*) from (select sText & ' ' as t from k where sID='9') q where t<>'abc '", "0"},
        Case{"BlanksAtTheEndInAList",
             "select count(*) from (select sText & ' ' as t from k where sID='9') q where t in ('x','ABC ')",
             "1"},
        Case{"LikeCountsThem", "select sID from k where sText like 'abc *'", ""},
        Case{"OrderIsCaseBlind", "select sText from k where sText like 'ab?' order by sText desc", "ABD;abc"},
        Case{"GroupsAreCaseBlind",
             "select count(*) from (select ucase(sText) as u from k union select lcase(sText) from k) q",
             "5"},
        Case{"MaxOfTextComparesText", "select Max(sID) from k", "9"},
        Case{"MaxOfItsNumberComparesNumbers", "select Max(cint(sID)), Max(val(sID)), Max(clng(sID)) from k",
             "100|100|100"},
        Case{"OrderByNumber", "select sID from k order by val(sID)", "1;2;9;10;100"},
        Case{"PlusJoinsText", "select sID + 'x' from k where sID='9'", "9x"},
        Case{"PlusWithNullIsNull", "select sText + 'x' from k where sID='100'", "~"},
        Case{"AmpersandTakesNullAsEmpty", "select sText & 'x' from k where sID='100'", "x"}),
    caseName<Case>);

INSTANTIATE_TEST_SUITE_P(
    Patterns, SemanticsTest,
    testing::Values(Case{"Prefix", "select sID from k where sText like 'AB*' order by sID", "10;9"},
                    Case{"EmptyPrefixLeavesNullOut", "select count(*) from k where sText like '*'", "4"},
                    Case{"OneCharacter", "select count(*) from k where sText like 'a?c'", "3"},
                    Case{"Digit", "select sID from k where sID like '1#'", "10"},
                    Case{"Range", "select sID from k where sText like 'ab[a-c]'", "9"},
                    Case{"NotInRange", "select sID from k where sText like 'ab[!a-c]'", "10"},
                    Case{"EscapedStar", "select sID from k where sText like 'a[*]c'", "2"},
                    Case{"PercentAndUnderlineArePlain",
                         "select sID from k where sText like 'a_c' or sText like '%'", "1"},
                    Case{"NotLike", "select sID from k where sText not like 'ab*' order by sID", "1;2"}),
    caseName<Case>);

INSTANTIATE_TEST_SUITE_P(
    NullAndBooleans, SemanticsTest,
    testing::Values(Case{"EqualsNullIsNeverTrue", "select sID from k where sText=Null", ""},
                    Case{"IsNull", "select sID from k where sText is null", "100"},
                    Case{"AggregatesSkipNull", "select count(sText), count(*), sum(lN) from k", "4|5|11"},
                    Case{"SumOfNothingIsNull", "select sum(lN) from k where lN>99", "~"},
                    Case{"OneNullGroup",
                         "select count(*) from (select dN from k where dN is null group by dN) q", "1"},
                    Case{"TrueIsMinusOne", "select bN, bN+0 from k where sID='9'", "True|-1"},
                    Case{"BareBooleanIsACondition", "select count(*) from k where bN", "2"},
                    Case{"NotOfABoolean", "select count(*) from k where not bN", "3"},
                    Case{"SumOfBooleans", "select sum(bN) from k", "-2"},
                    Case{"ComparedWithAWord", "select count(*) from k where bN='abc' or bN=''", "0"},
                    Case{"UnequalToAWord", "select count(*) from k where bN<>'abc'", "0"},
                    Case{"ComparedWithText", "select count(*) from k where bN='True'", "2"},
                    Case{"ComparedWithFalse", "select count(*) from k where bN=false", "3"}),
    caseName<Case>);

INSTANTIATE_TEST_SUITE_P(
    NumbersAndDates, SemanticsTest,
    testing::Values(
        Case{"SumOfMoneyIsExact", "select sum(mN) from k", "1.6"},
        Case{"MoneyIsReckonedExactly", "select sID from k where mN+mN+mN=0.6", "10"},
        Case{"NumbersTouchKeywords", "select sID from k where lN=2and dblN<100000order by sID", "10"},
        Case{"TextTouchesKeywords", "select '1'as a from k where sID='9'and lN=1", "1"},
        Case{"SignsMeet", "select sID from k where dblN=+--1.5", "9"},
        Case{"LeadingZeros", "select sID from k where lN=0002", "10"},
        Case{"DayLiteral", "select sID from k where dN=#2004-2-29#", "9"},
        Case{"AmericanLiteral", "select sID from k where dN<#12/31/2004#", "9"},
        Case{"WithTime", "select sID from k where dN=#2004-12-31 23:59:59#", "10"},
        Case{"PartsOfADate", "select year(dN), month(dN), day(dN) from k where sID='10'", "2004|12|31"},
        Case{"DatesOrder", "select sID from k where not dN is null order by dN desc", "2;10;9"},
        Case{"IntegerDivisionAndMod", "select 7\\2, 7 mod 4, 5/2 from k where sID='9'", "3|3|2.5"},
        Case{"ExpressionNames", "select sID from (select sID, lN*2 from k) q where Expr1001=4", "10"}),
    caseName<Case>);

struct Assignment {
  const char* name;
  const char* column;
  const char* source;
  const char* stored;
};

class AssignmentTest : public StoreTest, public testing::WithParamInterface<Assignment> {};

TEST_P(AssignmentTest, StoresWhatTheColumnCanTake) {
  db.Execute(
      "CREATE TABLE a (sT TEXT(20), iShort SHORT, lN LONG, dblN DOUBLE, mN CURRENCY, dN DATETIME, bN BIT)");
  const Assignment& param = GetParam();
  const std::string column = param.column;
  db.Execute("insert into a (" + column + ") values (" + param.source + ")");
  EXPECT_EQ(cell("select " + column + " from a"), param.stored);
  db.Execute("update a set " + column + "=" + param.source);
  EXPECT_EQ(cell("select " + column + " from a"), param.stored);
}

INSTANTIATE_TEST_SUITE_P(
    Columns, AssignmentTest,
    testing::Values(
        Assignment{"TextToNumber", "dblN", "'12.50'", "12.5"}, Assignment{"EmptyToNumber", "lN", "''", "~"},
        Assignment{"WordToNumber", "dblN", "'twelve'", "~"}, Assignment{"HalfToEven", "lN", "2.5", "2"},
        Assignment{"HalfToEvenUp", "iShort", "'3.5'", "4"},
        Assignment{"ShortOverflow", "iShort", "40000", "~"},
        Assignment{"LongOverflow", "lN", "'3000000000'", "~"}, Assignment{"Money", "mN", "0.12345", "0.1234"},
        Assignment{"TextToDate", "dN", "'2004-4-1'", "2004-4-1"}, Assignment{"EmptyToDate", "dN", "''", "~"},
        Assignment{"WordToDate", "dN", "'someday'", "~"},
        Assignment{"LiteralToDate", "dN", "#2004-4-1 9:05:00#", "2004-4-1 9:05:00"},
        Assignment{"WordToBoolean", "bN", "'True'", "True"},
        Assignment{"MinusOneToBoolean", "bN", "'-1'", "True"},
        Assignment{"NullToBoolean", "bN", "null", "False"}, Assignment{"EmptyToBoolean", "bN", "''", "False"},
        Assignment{"NumberToText", "sT", "007", "7"}, Assignment{"TextStays", "sT", "'007 '", "007 "},
        Assignment{"Negative", "lN", "+-300", "-300"}),
    caseName<Assignment>);

INSTANTIATE_TEST_SUITE_P(
    Groups, SemanticsTest,
    testing::Values(
        Case{"OrderByTheTotalItself", "select bN, sum(lN) as lN from k group by bN order by sum(lN)",
             "True|4;False|7"},
        Case{"OrderByItsAlias", "select bN, sum(lN) as lN from k group by bN order by lN desc",
             "False|7;True|4"},
        Case{"OrderDistinctRowsByAlias", "select distinct left(sText,1) as sText from k order by sText",
             "~;a"},
        Case{"GroupByAnExpression",
             "select left(sID,1), count(*) from k where lN>0 group by left(sID,1) order by left(sID,1)",
             "1|2;2|1;9|1"}),
    caseName<Case>);

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

TEST_F(StatementTest, AmountsAreStoredWithFourDecimals) {
  db.Execute("CREATE TABLE m (mA CURRENCY, mB CURRENCY)");
  db.Execute("insert into m values (0.1,0.2)");
  db.Execute("update m set mA=mA+mB");
  EXPECT_EQ(cell("select count(*) from m where mA=0.3"), "1");
  EXPECT_EQ(cell("select mA*mB from m"), "0.06");
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

TEST_F(StatementTest, ConversionsInAQueryFailAsTheyDoElsewhere) {
  db.Execute("CREATE TABLE c (sT TEXT(50))");
  db.Execute("insert into c values ('40000')");
  EXPECT_EQ(errorOf([&] { rows("select cint(sT) from c"); }), 6);
  db.Execute("update c set sT='word'");
  EXPECT_EQ(errorOf([&] { rows("select clng(sT) from c"); }), 13);
  EXPECT_EQ(cell("select val(sT) from c"), "0");
  db.Execute("update c set sT=null");
  EXPECT_EQ(errorOf([&] { rows("select clng(sT) from c"); }), 94);
  EXPECT_EQ(errorOf([&] { rows("select sgn(null) from c"); }), 94);
}

}  // namespace
}  // namespace zelkor::test
