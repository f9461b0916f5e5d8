#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "store/dialect/reading/Parser.h"
#include "store/dialect/StatementPrinter.h"

namespace zelkor::dialect {
namespace {

std::string reprinted(std::string_view statement) {
  Shape shape;
  shapeOf(statement, shape);
  return print(parse(statement, shape), shape);
}

/// Number and text of the statement's error, or the empty text when there is none.
std::string faultOf(std::string_view statement) {
  try {
    reprinted(statement);
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + " " + error.what();
  }
  return {};
}

struct Fault {
  std::string_view statement;
  std::string_view message;
};

TEST(SyntaxError, NamesThePieceThatOffends) {
  const std::vector<Fault> faults{
      {"select * from t where a='it's'", "3075 语法错误 (操作符丢失) 在查询表达式 'a='it's'' 中。"},
      {"select * from t where a='x'y' order by b",
       "3075 语法错误 (操作符丢失) 在查询表达式 'a='x'y' order by b' 中。"},
      {"select * from t where a='x'y'z' and b=1 order by c",
       "3075 语法错误 (操作符丢失) 在查询表达式 'a='x'y'z' and b=1' 中。"},
      {"select * from t where a= 'x", "3075 字符串的语法错误 在查询表达式 'a= 'x' 中。"},
      {"update t set a=1,d=## where b=2", "3075 日期的语法错误 在查询表达式 'a=1,d=## where b=2' 中。"},
      {"update t set d=#2004-4-1 where b=2", "3075 日期的语法错误 在查询表达式 'd=#2004-4-1 where b=2' 中。"},
      {"select a b,c from t", "3075 语法错误 (操作符丢失) 在查询表达式 'a b' 中。"},
      {"select a，b from t", "3075 语法错误 在查询表达式 'a，b from t' 中。"},
      {"select * from t where a=1 b=2 order by c", "3075 语法错误 (操作符丢失) 在查询表达式 'a=1 b=2' 中。"},
      {"select * from t where (a=1", "3075 语法错误 (操作符丢失) 在查询表达式 '(a=1' 中。"},
      {"select * from t where a in (select b from u where c=1 d) and e",
       "3075 语法错误 (操作符丢失) 在查询表达式 'c=1 d' 中。"},
      {"select * from t where", "3075 语法错误 在查询表达式 'where' 中。"},
      {"select * from t where a=", "3075 语法错误 在查询表达式 'a=' 中。"},
      {"select * from t; drop table t", "3075 SQL 语句结尾之后有多余的字符 在查询表达式 'drop table t' 中。"},
      {"select * from t where a='1'; delete from t",
       "3075 SQL 语句结尾之后有多余的字符 在查询表达式 'delete from t' 中。"},
      {"insert into t (a) valuse ('x')",
       "3134 INSERT INTO 语句的语法错误。 在查询表达式 'valuse ('x')' 中。"},
      {"insert into t (a) values ('it's','y')",
       "3134 INSERT INTO 语句的语法错误。 在查询表达式 '('it's','y')' 中。"},
      {"insert into t (a) values ('x'，'y')",
       "3134 INSERT INTO 语句的语法错误。 在查询表达式 '('x'，'y')' 中。"},
      {"  INSERT into t (a) values ('x','it's o'clock')",
       "3134 INSERT INTO 语句的语法错误。 在查询表达式 '('x','it's o'clock')' 中。"},
  };
  for (const Fault& fault : faults) EXPECT_EQ(faultOf(fault.statement), fault.message) << fault.statement;
}

TEST(SyntaxError, ComesForWhatTheDialectDoesNotKnow) {
  const std::vector<std::string_view> statements{"",
                                                 "  ",
                                                 ";",
                                                 "select",
                                                 "selec * from t",
                                                 "(select * from t)",
                                                 "show tables",
                                                 "select from t",
                                                 "select * from",
                                                 "select * from t,",
                                                 "select * t",
                                                 "select top a b from t",
                                                 "select top 1.5 * from t",
                                                 "select a as from t",
                                                 "select a from t limit 1",
                                                 "select * from t where a!=1",
                                                 "select * from t where a==1",
                                                 "select * from t where a<>",
                                                 "select * from t where a is 1",
                                                 "select * from t where a between 1",
                                                 "select * from t where a in ()",
                                                 "select * from t where a in (1,)",
                                                 "select * from t where not",
                                                 "select * from t where a=@b",
                                                 "select * from t where a=?",
                                                 "select * from t where a like",
                                                 "select * from t -- where",
                                                 "select /* x */ * from t",
                                                 "select f(a from t",
                                                 "select f(a,) from t",
                                                 "select a. from t",
                                                 "select .a from t",
                                                 "select [a from t",
                                                 "select [] from t",
                                                 "select `a from t",
                                                 "select a from t group a",
                                                 "select a from t order by",
                                                 "select a from t union",
                                                 "select a from t union b",
                                                 "select a from t join u on a=b",
                                                 "select a from t inner u on a=b",
                                                 "select a from t inner join u",
                                                 "select a from (select b from t",
                                                 "select 1 2",
                                                 "select * from t where a='x' 'y'",
                                                 "select * from t where [a]b=1",
                                                 "select a from t where order=1",
                                                 "insert t values (1)",
                                                 "insert into t",
                                                 "insert into t (a values (1)",
                                                 "insert into t (a) values 1",
                                                 "insert into t (a) values (1),(2)",
                                                 "insert into t () values (1)",
                                                 "insert into t (a) values ()",
                                                 "update t",
                                                 "update t set",
                                                 "update t set a",
                                                 "update t set a=",
                                                 "update t set a=1,",
                                                 "update set a=1",
                                                 "update t set 1=a",
                                                 "update t set a=1 b=2",
                                                 "delete",
                                                 "delete t where a=1",
                                                 "delete a from t",
                                                 "delete from",
                                                 "create",
                                                 "create t",
                                                 "create table t",
                                                 "create table t ()",
                                                 "create table t (a)",
                                                 "create table t (a text()",
                                                 "create table t (a text('x'))",
                                                 "create unique table t (a long)",
                                                 "create index i on t",
                                                 "create index on t (a)",
                                                 "create index i on t (a) with",
                                                 "drop",
                                                 "drop table",
                                                 "drop t",
                                                 "drop index i",
                                                 "alter table t",
                                                 "alter table t add",
                                                 "alter table t drop",
                                                 "alter t add a long",
                                                 "select a from t;;",
                                                 "select a from t;x",
                                                 "select \x01 from t",
                                                 "select a from t where a=“x”",
                                                 "select　a from t",
                                                 "select 1e from t x y"};
  for (const auto statement : statements) {
    const std::string fault = faultOf(statement);
    EXPECT_TRUE(fault.starts_with("3075 ") || fault.starts_with("3134 ")) << statement << ": " << fault;
  }
}

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

TEST(SyntaxError, ShowsTheNeighbourhoodOfTheFaultOfALongPiece) {
  const std::string many = repeated("名称='财务' and ", 50);
  for (const std::string_view broken : {"a='x'y' and ", "a=1 b=2 and ", "a， and "}) {
    const std::string fault = faultOf("select * from t where " + many + std::string(broken) + many + "c");
    EXPECT_NE(fault.find(broken), std::string::npos) << fault;
    EXPECT_LT(fault.size(), 350U);
    const auto begin = fault.find('\'') + 1;
    EXPECT_TRUE(std::string_view("名称='财务' and ").find(fault.substr(begin, 3)) != std::string_view::npos)
        << fault;
  }
}

TEST(SyntaxError, ComesForDeepNestingInsteadOfACrash) {
  constexpr std::size_t kDeep = 100'000;
  const std::vector<std::string> statements{
      "select " + repeated("(", kDeep) + "1" + repeated(")", kDeep),
      "select " + repeated("-", kDeep) + "1",
      "select 1 where " + repeated("not ", kDeep) + "a",
      "select " + repeated("1+", kDeep) + "1",
      "select " + repeated("2^", kDeep) + "1",
      "select " + repeated("a is null is null ", kDeep),
      "select " + repeated("f(", kDeep) + "1" + repeated(")", kDeep),
      "select a from " + repeated("(", kDeep) + "t" + repeated(")", kDeep),
      "select a from t" + repeated(" inner join t on a=a", kDeep),
      "update t" + repeated(",t", kDeep) + " set a=1",
      "select a from " + repeated("(select a from ", kDeep) + "t" + repeated(")", kDeep),
      "select a where a in (" + repeated("select a where a in (", kDeep) + "1" + repeated(")", kDeep),
  };
  for (const std::string& statement : statements) {
    EXPECT_TRUE(faultOf(statement).starts_with("3075 ")) << statement.substr(0, 60);
  }
  EXPECT_EQ(faultOf("select " + repeated("(", 40) + "1" + repeated(")", 40)), "");
  EXPECT_EQ(faultOf("select a from t where a in (1" + repeated(",1", 20'000) + ")"), "");
}

const std::vector<std::string> kStatements{
    "select a.*,b.[c d] as 名称 from t a left join [u v] as b on a.x=b.x where a.n like '01*' and "
    "b.m<>#2004-4-1# order by 1 desc;",
    "select distinct top 2 max(clng(x)) as y from (select x from t union all select 'it''s' from u) s group "
    "by z having sum(w)>1.5",
    "insert into t (a,[select],部门) values('财务''部',-1.50,&hFF,null,#2004-4-1 9:05:00#,left(\"x\",1))",
    "insert into t (a) select b from u where c in ('1','2') and not exists (select * from v where v.d=u.d)",
    "update t as s inner join u on s.a=u.a set s.b=u.b+1,s.c='x'where (select count(*) from v where d like "
    "s.d+'?*')=0",
    "delete a.* from t as a where a.b between 1and 2or a.c is not null xor a.d>=all(select e from t)",
    "create table t (a counter primary key,b text(20) not null,c currency,constraint k primary key (a,b))",
    "create unique index [i j] on t (a asc,b desc) with disallow null",
    "alter table t add column a text(8)",
};

TEST(Parse, GivesTheSameTreeForAPrintedTree) {
  std::vector<std::string> statements = kStatements;
  for (const std::string_view name :
       {"select", "a b", "from", "No", "财务，部", "#1#", "a'b", "it's \"x\"", "1a", "-", "primary"}) {
    const std::string quoted = "[" + std::string(name) + "]";
    std::string text;
    for (const char c : name) text += c == '\'' ? "''" : std::string(1, c);
    statements.push_back("select " + quoted + ",x." + quoted + " as " + quoted + " from " + quoted + " as " +
                         quoted + " where " + quoted + "='" + text + "' order by " + quoted);
    statements.push_back("insert into " + quoted + " (" + quoted + ") values ('" + text + "')");
    statements.push_back("update " + quoted + " set " + quoted + "='" + text + "'");
    statements.push_back("create table " + quoted + " (" + quoted + " long, primary key(" + quoted + "))");
  }
  for (const std::string& statement : statements) {
    const std::string printed = reprinted(statement);
    EXPECT_EQ(reprinted(printed), printed) << statement;
  }
}

/// Parses and, where the text is a statement, proves its tree by printing it.
void endure(const std::string& statement) {
  try {
    const std::string printed = reprinted(statement);
    EXPECT_EQ(reprinted(printed), printed) << statement;
  } catch (const RuntimeError&) {
    SUCCEED();
  }
}

TEST(SyntaxError, IsAllThatComesOfDamagedStatements) {
  constexpr int kMutationsOfEach = 3000;
  const std::vector<std::string> scraps{
      "'",     "\"",     "#",      "(",  ")",    "[",        "]",
      "`",     ",",      ";",      ".",  "*",    "&h1",      "-",
      "=",     "<",      "1",      "e5", " ",    "not ",     " select ",
      " by 1", " like ", "top 1 ", "，", "\xE5", "\xEF\xBC", std::string(1, '\0')};
  std::mt19937 random(20040401);
  for (const std::string& statement : kStatements) {
    for (std::size_t length = 0; length < statement.size(); ++length) {
      endure(statement.substr(0, length));
      endure(statement.substr(length));
    }
    for (int i = 0; i < kMutationsOfEach; ++i) {
      std::string damaged = statement;
      for (auto changes = 1 + random() % 3; changes > 0 && !damaged.empty(); --changes) {
        const auto at = random() % damaged.size();
        damaged.replace(at, random() % 4, random() % 4 == 0 ? "" : scraps[random() % scraps.size()]);
      }
      endure(damaged);
    }
  }
}

}  // namespace
}  // namespace zelkor::dialect
