#include <gtest/gtest.h>

#include <random>

#include "base/RuntimeError.h"
#include "store/catalogue/Catalogue.h"
#include "store/dialect/reading/Parser.h"
#include "store/dialect/Translate.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/sqlite/SqliteWords.h"

// Statements that are long, deep or damaged; what is wrong with plain ones is kept in golden/dialect-errors.
namespace zelkor::dialect {
namespace {

/// Number and text of the statement's error, or the empty text when there is none.
std::string faultOf(std::string_view statement) {
  try {
    Shape shape;
    shapeOf(statement, shape);
    parse(statement, shape);
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + " " + error.what();
  }
  return {};
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
  for (const std::string& statement : statements)
    EXPECT_TRUE(faultOf(statement).starts_with("3075 ")) << statement.substr(0, 60);
  EXPECT_EQ(faultOf("select " + repeated("(", 40) + "1" + repeated(")", 40)), "");
  EXPECT_EQ(faultOf("select a from t where a in (1" + repeated(",1", 20'000) + ")"), "");
}

const std::vector<std::string> kStatements{
    "select a.*,b.[sName] as 名称 from fa_Status a left join [fa_Origins] as b on a.sID=b.sID where a.sName "
    "like '01*' and b.sID<>#2004-4-1# order by 1 desc;",
    "select distinct top 2 max(clng(x)) as y from (select sCardID as x from fa_cards union all select "
    "'it''s' "
    "from fa_Status) s group by x having sum(x)>1.5",
    "insert into fa_cards (sCardID,[dblValue],lLife,dStartdate,sSite) "
    "values('财务''部',-1.50,&hFF,#2004-4-1 9:05:00#,left(\"x\",1))",
    "insert into fa_Status (sID) select sID from fa_Origins where sName in ('1','2') and not exists (select "
    "* "
    "from fa_Depreciations v where v.sID=fa_Origins.sID)",
    "update fa_Status as s inner join fa_Origins u on s.sID=u.sID set s.iLevel=u.iLevel+1,s.sName='x'where "
    "(select count(*) from code where ccode like s.sID+'?*')=0",
    "delete a.* from fa_Status as a where a.iLevel between 1and 2or a.sID is not null xor a.iLevel>=all"
    "(select iLevel from fa_Origins)",
    "create table t (a counter primary key,b text(20) not null,c currency,constraint k primary key (a,b))",
    "create unique index [i j] on fa_Status (sID asc,sName desc) with ignore null",
    "alter table fa_Status add column a text(8)",
};

/// Translates for either engine; nothing but an error of the dialect may come of it.
bool isTranslated(const std::string& statement) {
  try {
    Shape shape;
    shapeOf(statement, shape);
    for (const EngineWords* words : {&sqliteWords(), &postgreSqlWords()}) {
      const Translation translation = translate(statement, shape, catalogueSchema(), *words);
      EXPECT_FALSE(translation.query == nullptr && translation.sql.empty()) << statement;
      if (translation.query) (void)translation.query->rows({}, Query::Form::Plain);
    }
    return true;
  } catch (const RuntimeError&) {
    return false;
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
    EXPECT_TRUE(isTranslated(statement)) << statement;
    for (std::size_t length = 0; length < statement.size(); ++length) {
      isTranslated(statement.substr(0, length));
      isTranslated(statement.substr(length));
    }
    for (int i = 0; i < kMutationsOfEach; ++i) {
      std::string damaged = statement;
      for (auto changes = 1 + random() % 3; changes > 0 && !damaged.empty(); --changes) {
        const auto at = random() % damaged.size();
        damaged.replace(at, random() % 4, random() % 4 == 0 ? "" : scraps[random() % scraps.size()]);
      }
      isTranslated(damaged);
    }
  }
}

TEST(Parse, RefusesTheShapeOfAnotherStatement) {
  Shape shape;
  shapeOf("select 1", shape);
  EXPECT_THROW(parse("select 1,2", shape), std::invalid_argument);
}

}  // namespace
}  // namespace zelkor::dialect
