#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/dialect/reading/Parser.h"
#include "store/dialect/StatementPrinter.h"

namespace zelkor::dialect {
namespace {

using Cases = std::vector<std::pair<std::string_view, std::string_view>>;

std::string reprintedExpression(std::string_view text) {
  Shape shape;
  shapeOf(text, shape);
  return print(parseExpression(text, shape), shape);
}

std::string reprinted(std::string_view statement) {
  Shape shape;
  shapeOf(statement, shape);
  return print(parse(statement, shape), shape);
}

TEST(ParseExpression, BindsOperatorsInTheDialectsOrder) {
  const Cases cases{
      {"-2^2", "-(2 ^ 2)"},
      {"2^-1", "2 ^ (-1)"},
      {"2^3^2", "(2 ^ 3) ^ 2"},
      {"-a*b", "(-a) * b"},
      {"12/3\\2", "(12 / 3) \\ 2"},
      {"2+3\\4", "2 + (3 \\ 4)"},
      {"7 Mod 4+2", "(7 Mod 4) + 2"},
      {"7 mod 2*3", "7 Mod (2 * 3)"},
      {"7\\2 Mod 4", "(7 \\ 2) Mod 4"},
      {"1&2+3", "1 & (2 + 3)"},
      {"a&b=c&d", "(a & b) = (c & d)"},
      {"a-b-c", "(a - b) - c"},
      {"a=b<>c", "(a = b) <> c"},
      {"not a=b and c", "(Not (a = b)) And c"},
      {"a and not b or c", "(a And (Not b)) Or c"},
      {"a or b and c", "a Or (b And c)"},
      {"a imp b eqv c xor d or e", "a Imp (b Eqv (c Xor (d Or e)))"},
      {"a=1 or b like 'x*' and c is not null", "(a = 1) Or ((b Like 'x*') And (c Is Not Null))"},
      {"a between 1 and 2 and b", "(a Between 1 And 2) And b"},
      {"a not between 1+1 and 2&b", "a Not Between (1 + 1) And (2 & b)"},
      {"a like b+'?*' = 0", "(a Like (b + '?*')) = 0"},
      {"a not in (1,-2) and b not like 'x'", "(a Not In (1, -2)) And (b Not Like 'x')"},
      {"(a+b)*c", "(a + b) * c"},
      {"((a)) is null", "a Is Null"},
      {"30--7", "30 - (-7)"},
      {"a=+-300", "a = (+(-300))"},
  };
  for (const auto& [text, tree] : cases) EXPECT_EQ(reprintedExpression(text), tree) << text;
}

TEST(ParseExpression, TakesPiecesThatTouch) {
  const Cases cases{
      {"a=4and b='1'or c=#2004-4-1#and d", "((a = 4) And (b = '1')) Or ((c = #2004-4-1#) And d)"},
      {"a=>1 and b=<2 and c<>3", "((a >= 1) And (b <= 2)) And (c <> 3)"},
      {"(a=1)and(b=2)", "(a = 1) And (b = 2)"},
      {"a in('1','2')or not(b)", "(a In ('1', '2')) Or (Not b)"},
      {"010=10.", "010 = 10."},
      {"a.b=t ! c", "a.b = t.c"},
      {"\"it's\"&'x\"y'", "'it''s' & 'x\"y'"},
  };
  for (const auto& [text, tree] : cases) EXPECT_EQ(reprintedExpression(text), tree) << text;
}

TEST(ParseExpression, ReadsOperands) {
  const Cases cases{
      {"True", "True"},
      {"a=No or b=yes", "(a = False) Or (b = True)"},
      {"c=Off or d=On", "(c = False) Or (d = True)"},
      {"[No]=t.yes", "[No] = t.[yes]"},
      {"[order by].[a b]", "[order by].[a b]"},
      {"t.[order]", "t.[order]"},
      {"名称='财务'", "[名称] = '财务'"},
      {"count(*)", "count(*)"},
      {"count( a )", "count(a)"},
      {"Count(distinct a)", "Count(Distinct a)"},
      {"left(a,2)&right (b,1)", "left(a, 2) & right(b, 1)"},
      {"date()", "date()"},
      {"a in (select b from t;)", "a In (Select b From t)"},
      {"not exists (select * from t)", "Not (Exists (Select * From t))"},
      {"(select count(b) from t)=0", "(Select count(b) From t) = 0"},
      {"a>=all (select b from t)", "a >= All (Select b From t)"},
      {"a=some(select b from t)", "a = Any (Select b From t)"},
  };
  for (const auto& [text, tree] : cases) EXPECT_EQ(reprintedExpression(text), tree) << text;
}

TEST(ParseSelect, ReadsEveryClause) {
  const Cases cases{
      {"select*from t;", "Select * From t"},
      {"Select a.* ,b.x From a,b", "Select a.*, b.x From a, b"},
      {"select all a from t", "Select a From t"},
      {"select distinct top 1 a from t", "Select Distinct Top 1 a From t"},
      {"SELECT DISTINCTROW a FROM t WITH OWNERACCESS OPTION;", "Select a From t"},
      {"select top 3a from t", "Select Top 3 a From t"},
      {"select '1'as a,2as b", "Select '1' As a, 2 As b"},
      {"select sum(a) as x into u from t where a=1group by b having sum(a)>2order by b desc,1 asc",
       "Select sum(a) As x Into u From t Where a = 1 Group By b Having sum(a) > 2 Order By b Desc, 1"},
      {"select a from t union all select b from u union select c from v order by a",
       "Select a From t Union All Select b From u Union Select c From v Order By a"},
      {"select a from t as x, u y, [v w] z", "Select a From t As x, u As y, [v w] As z"},
      {"select a from t left outer join u on t.a=u.a and t.b=u.b",
       "Select a From t Left Join u On (t.a = u.a) And (t.b = u.b)"},
      {"select a from (t as x inner join u on x.a=u.a) right join v on (u.b=v.b), w",
       "Select a From (t As x Inner Join u On x.a = u.a) Right Join v On u.b = v.b, w"},
      {"select a from t inner join (u left join v on u.a=v.a) on t.a=u.a",
       "Select a From t Inner Join (u Left Join v On u.a = v.a) On t.a = u.a"},
      {"select a from (select b as a from t) as x,(select c from u) y",
       "Select a From (Select b As a From t) As x, (Select c From u) As y"},
      {"select a from((t))", "Select a From t"},
  };
  for (const auto& [statement, tree] : cases) EXPECT_EQ(reprinted(statement), tree) << statement;
}

TEST(ParseWrites, ReadsInsertUpdateDelete) {
  const Cases cases{
      {"insert into t (a,[b c]) values('x',-1)", "Insert Into t (a, [b c]) Values ('x', -1)"},
      {"INSERT INTO t VALUES (null,#2004-4-1#)", "Insert Into t Values (Null, #2004-4-1#)"},
      {"insert into t(a) select b from u", "Insert Into t (a) Select b From u"},
      {"insert into t (select b from u)", "Insert Into t Select b From u"},
      {"insert into t select top 1 a from u", "Insert Into t Select Top 1 a From u"},
      {"update t set a=1,b = c+1where d='x'", "Update t Set a = 1, b = c + 1 Where d = 'x'"},
      {"UPDATE t AS s SET s.a=True", "Update t As s Set s.a = True"},
      {"update a inner join b on a.x=b.x set a.y=b.y", "Update a Inner Join b On a.x = b.x Set a.y = b.y"},
      {"update a,b set a.y=b.y where a.x=b.x", "Update a Inner Join b On True Set a.y = b.y Where a.x = b.x"},
      {"delete from t", "Delete From t"},
      {"delete * from t where a='x '", "Delete From t Where a = 'x '"},
      {"delete a.* from a inner join b on a.x=b.x", "Delete a.* From a Inner Join b On a.x = b.x"},
  };
  for (const auto& [statement, tree] : cases) EXPECT_EQ(reprinted(statement), tree) << statement;
}

TEST(ParseDefinitions, ReadsTablesAndIndexes) {
  const Cases cases{
      {"create table t (a counter primary key,b text (20) not null,c decimal(18,4) null,d long unique)",
       "Create Table t (a counter Primary Key, b text(20) Not Null, c decimal(18), d long Unique)"},
      {"create table t (a text(8),b long,constraint pk primary key(a,b))",
       "Create Table t (a text(8), b long, Primary Key (a, b))"},
      {"create table [a b] ([c d] date)", "Create Table [a b] ([c d] date)"},
      {"create unique index i on t (a,b desc)", "Create Unique Index i On t (a, b Desc)"},
      {"create index i on t(a) with ignore null", "Create Index i On t (a) With Ignore Null"},
      {"create index i on t(a) with primary", "Create Unique Index i On t (a) With Disallow Null"},
      {"drop table [x y];", "Drop Table [x y]"},
      {"drop index i on t", "Drop Index i On t"},
      {"alter table t add column a text(3)", "Alter Table t Add Column a text(3)"},
      {"alter table t add a long", "Alter Table t Add Column a long"},
      {"alter table t drop column a", "Alter Table t Drop Column a"},
  };
  for (const auto& [statement, tree] : cases) EXPECT_EQ(reprinted(statement), tree) << statement;
}

TEST(Parse, RefusesTheShapeOfAnotherStatement) {
  Shape shape;
  shapeOf("select 1", shape);
  EXPECT_THROW(parse("select 1,2", shape), std::invalid_argument);
}

}  // namespace
}  // namespace zelkor::dialect
