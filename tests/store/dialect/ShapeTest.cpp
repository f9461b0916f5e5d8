#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/reading/Shape.h"
#include "support/Golden.h"

namespace zelkor::dialect {
namespace {

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

Shape shapeFor(std::string_view statement) {
  Shape shape;
  shapeOf(statement, shape);
  return shape;
}

std::vector<std::string> contents(const std::vector<Literal>& literals) {
  std::vector<std::string> result;
  for (const Literal& literal : literals) result.emplace_back(literal.content());
  return result;
}

// The buffers of a shape are used again, so that whatever one statement leaves there would show in the next.
TEST(Shape, LiftsConstantsOutOfTheStatement) {
  Shape shape;
  for (const auto& one : test::casesIn("store/dialect/shapes.txt")) {
    shapeOf(one[0], shape);
    EXPECT_EQ(visibleKey(shape), one[1]) << one[0];
    std::vector<std::string> found{one[0], one[1]};
    for (const Literal& literal : shape.literals) {
      found.emplace_back(literal.content());
      EXPECT_EQ(literal.prefixPattern, one[1].find("{p}") != std::string::npos) << one[0];
    }
    EXPECT_EQ(found, one);
  }
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
    EXPECT_EQ(contents(literals), contents(shapeFor(other).literals)) << other;
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
      EXPECT_EQ(contents(literals), contents(shapeFor(other).literals)) << statement << " : " << other;
    }
  }
}

}  // namespace
}  // namespace zelkor::dialect
