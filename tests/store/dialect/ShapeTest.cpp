#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/reading/Shape.h"

namespace zelkor::dialect {
namespace {

Shape shapeFor(std::string_view statement) {
  Shape shape;
  shapeOf(statement, shape);
  return shape;
}

/// The key with a letter in braces for each literal: text, number, date, prefix pattern, text with a blank at
/// its end.
std::string visibleKey(const Shape& shape) {
  constexpr std::string_view kMarks = "tndpb";
  std::string result;
  for (const char c : shape.key) {
    if (c >= 1 && c <= 5) {
      result += std::string("{") + kMarks[static_cast<std::size_t>(c - 1)] + "}";
    } else {
      result += c;
    }
  }
  return result;
}

std::vector<std::string> contents(const Shape& shape) {
  std::vector<std::string> result;
  for (const Literal& literal : shape.literals) result.emplace_back(literal.content());
  return result;
}

struct Case {
  std::string_view statement;
  std::string_view key;
  std::vector<std::string> contents;
};

TEST(Shape, LiftsConstantsOutOfTheStatement) {
  const std::vector<Case> cases{
      {"select * from t where a='x' and b=12.50", "select * from t where a={t} and b={n}", {"x", "12.50"}},
      {"where a='x ' and b=' x' and c=' '", "where a={b} and b={t} and c={b}", {"x ", " x", " "}},
      {"  select\t*\r\nfrom   t ", "select * from t", {}},
      {"update t set d=#2004-4-1 9:05:00#,e=\"q\"", "update t set d={d},e={t}", {"2004-4-1 9:05:00", "q"}},
      {"insert into t values('it''s','','''')", "insert into t values({t},{t},{t})", {"it's", "", "'"}},
      {"insert into t values(\"say \"\"x\"\"\",'a\"b')",
       "insert into t values({t},{t})",
       {"say \"x\"", "a\"b"}},
      {"select 'x'as a,007.,.5,1e3,1E-2",
       "select {t}as a,{n},{n},{n},{n}",
       {"x", "007.", ".5", "1e3", "1E-2"}},
      {"where a=4and b=100000where", "where a={n}and b={n}where", {"4", "100000"}},
      {"where a=&h1A or b=&HFFFF or c=&hFFFFFFFF", "where a={n} or b={n} or c={n}", {"26", "-1", "-1"}},
      {"select x &hB,x & &hB", "select x &hB,x & {n}", {"11"}},
      {"where a=-3 and b=+-4", "where a=-{n} and b=+-{n}", {"3", "4"}},
      {"select [a 'b'  #1], `x  1`, t1.c2 from t3", "select [a 'b'  #1], `x  1`, t1.c2 from t3", {}},
      {"select 名称 from 部门表2 where 名称='财务，部'",
       "select 名称 from 部门表2 where 名称={t}",
       {"财务，部"}},
  };
  for (const Case& c : cases) {
    const Shape shape = shapeFor(c.statement);
    EXPECT_EQ(visibleKey(shape), c.key) << c.statement;
    EXPECT_EQ(contents(shape), c.contents) << c.statement;
  }
}

TEST(Shape, MarksPatternsThatArePlainPrefixes) {
  const std::vector<std::pair<std::string_view, std::string_view>> cases{
      {"where a like '01*'", "where a like {p}"},
      {"where a not LIKE'部门*'", "where a not LIKE{p}"},
      {"where a like '*'", "where a like {t}"},
      {"where a like '01'", "where a like {t}"},
      {"where a like '0?*'", "where a like {t}"},
      {"where a like '0*1*'", "where a like {t}"},
      {"where a like '0#*'", "where a like {t}"},
      {"where a like '[0]*'", "where a like {t}"},
      {"where a like ('01*')", "where a like ({t})"},
      {"where a = '01*'", "where a = {t}"},
      {"where a like b and c='01*'", "where a like b and c={t}"},
  };
  for (const auto& [statement, key] : cases) EXPECT_EQ(visibleKey(shapeFor(statement)), key);
  EXPECT_TRUE(shapeFor("a like '01*'").literals.front().prefixPattern);
  EXPECT_FALSE(shapeFor("a like '01'").literals.front().prefixPattern);
}

TEST(Shape, KeepsNumbersOnWhichTheTranslationDepends) {
  const std::vector<std::pair<std::string_view, std::string_view>> cases{
      {"select top 10 * from t order by 2 desc,1", "select top 10 * from t order by 2 desc,1"},
      {"select a from t group by 1,b having c=3 order by 1;",
       "select a from t group by 1,b having c={n} order by 1;"},
      {"select a from t order by 1+b,left(c,2),3", "select a from t order by {n}+b,left(c,{n}),3"},
      {"select a from t order by 3 mod b,2desc", "select a from t order by {n} mod b,2desc"},
      {"select a from (select 1 from t order by 1),4", "select a from (select {n} from t order by 1),{n}"},
      {"select 1 from t group by a union select 2,3 from t",
       "select {n} from t group by a union select {n},{n} from t"},
      {"create table t (c text(20), n decimal(18,4))", "create table t (c text(20), n decimal(18,4))"},
      {"ALTER TABLE t ADD c TEXT(8)", "ALTER TABLE t ADD c TEXT(8)"},
  };
  for (const auto& [statement, key] : cases) EXPECT_EQ(visibleKey(shapeFor(statement)), key);
}

TEST(Shape, IsOverwrittenWhenItsBuffersAreUsedAgain) {
  Shape shape;
  shapeOf("insert into t values('it''s',1,2,#2004-4-1#) where something long follows here", shape);
  shapeOf("select 'x'", shape);
  EXPECT_EQ(visibleKey(shape), "select {t}");
  EXPECT_EQ(contents(shape), std::vector<std::string>{"x"});
}

TEST(Shape, IsRecognisedByASampleWhenNothingButLiteralsDiffers) {
  const std::vector<std::array<std::string_view, 2>> cases{
      {"select * from t where a='x' and b=12.50 ", "select * from t where a='it''s' and b=7 "},
      {"insert into t values (1,'',#2004-4-1#,-2)", "insert into t values (1e3,'''',#2004-12-31 9:00#,-.5)"},
      {"where a like '01*' order by 2,left(c,3)", "where a like '部门*' order by 2,left(c,17)"},
      {"select top 3 a from t where b=&h1A", "select top 3 a from t where b=26"},
      {"delete from t", "delete from t"},
  };
  for (const auto& [statement, other] : cases) {
    std::vector<Literal> literals;
    EXPECT_TRUE(ShapeSample(statement).matches(other, literals)) << other;
    EXPECT_EQ(contents({"", literals}), contents(shapeFor(other))) << other;
  }
}

TEST(Shape, IsNeverTakenForThatOfASampleWhenItIsAnother) {
  constexpr std::string_view kStatements[] = {"select a from t where b='x'",
                                              "select a from t where b='x '",
                                              "select a from t where b=5",
                                              "select a from t where b=-5",
                                              "select a from t where b=#1-1-1#",
                                              "select a from t where b=5 ",
                                              "select a from t where b= 5",
                                              "select a from t where b=5e",
                                              "select a from t where b=5 e",
                                              "select a from t where b='x' 'y'",
                                              "select a from t where b='x''y'",
                                              "select a from t where b like '1*'",
                                              "select a from t where b like '1'",
                                              "select a from t where b like5",
                                              "select a from t where b like 5",
                                              "select a from t order by 1",
                                              "select a from t order by 1+b",
                                              "select a from t order by 12345678901",
                                              "select top 1 a from t",
                                              "select top 12345678901 a from t",
                                              "select top 1.5 a from t",
                                              "select 5 a from t",
                                              "select5 a from t",
                                              "select .5 a from t",
                                              "select b.5 a from t",
                                              "select b .5 a from t",
                                              "select x and &h5 from t",
                                              "select x and&h5 from t",
                                              "select x and5 from t",
                                              "select x and 5 from t",
                                              "select x &h5 from t",
                                              "create table t (c text(20))",
                                              "create table t (c text(30))",
                                              "5",
                                              "6",
                                              "'x'"};
  for (const std::string_view statement : kStatements) {
    const ShapeSample sample(statement);
    for (const std::string_view other : kStatements) {
      std::vector<Literal> literals;
      if (!sample.matches(other, literals)) continue;
      EXPECT_EQ(visibleKey(shapeFor(other)), visibleKey(shapeFor(statement))) << statement << " : " << other;
      EXPECT_EQ(contents({"", literals}), contents(shapeFor(other))) << statement << " : " << other;
    }
  }
}

}  // namespace
}  // namespace zelkor::dialect
