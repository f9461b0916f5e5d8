#include <gmock/gmock.h>

#include "store/dialect/CatalogueFile.h"
#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/Translate.h"
#include "store/engine/sqlite/SqliteWords.h"
#include "support/Golden.h"

// Statements that are issued for every card must find their rows through an index.
namespace zelkor::test {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

class SqlitePlanTest : public testing::Test {
 protected:
  std::vector<std::string> plan(const std::string& sql) {
    const auto statement = file.engine().prepare("EXPLAIN QUERY PLAN " + sql);
    std::vector<std::string> lines;
    while (statement->step()) lines.emplace_back(statement->text(3));
    return lines;
  }

  static dialect::Translation translated(std::string_view statement) {
    dialect::Shape shape;
    dialect::shapeOf(statement, shape);
    return dialect::translate(statement, shape, catalogueSchema(), sqliteWords());
  }

  static std::string fastText(const dialect::Translation& translation) {
    const dialect::Query* query = translation.query.get();
    if (query == nullptr) return (translation.guard ? translation.fastSql : translation.sql).front();
    return query->rows(dialect::test::allColumns(*query),
                       query->guard() ? dialect::Query::Form::Fast : dialect::Query::Form::Plain);
  }

  bool guarded(std::string_view statement) {
    return file.engine().prepare(*translated(statement).guard)->step();
  }

  dialect::test::CatalogueFile file;
};

TEST_F(SqlitePlanTest, IndexesServeTheStatementsOfEveryCard) {
  for (const auto& one : casesIn("store/catalogue/plans.txt")) {
    const std::vector<std::string> steps = plan(fastText(translated(one[0])));
    // Rows that are alike are sorted among each other: the right part of an ORDER BY.
    EXPECT_THAT(steps, Each(AnyOf(HasSubstr(one[1]), HasSubstr("FOR DISTINCT"), HasSubstr("RIGHT PART"))))
        << one[0];
    EXPECT_THAT(steps, Each(Not(HasSubstr("FOR ORDER BY")))) << one[0];
  }
}

TEST_F(SqlitePlanTest, TheGuardAsksIndexesOnly) {
  for (const char* statement :
       {"Select Top 1 * From FA_Cards Order by clng(sCardID) Desc",
        "select sCardNum from fa_cards where cint(sCardID) in (select max(cint(sCardID)) from fa_cards)",
        "select Max(val(coutid)) as imax from fa_ZWVouchers"}) {
    for (const std::string& step : plan(*translated(statement).guard)) {
      const bool reads = step.starts_with("SCAN fa_") || step.starts_with("SEARCH fa_");
      EXPECT_TRUE(!reads || step.find(" INDEX zk_") != std::string::npos) << step;
    }
  }
}

TEST_F(SqlitePlanTest, TheGuardLetsNumbersPass) {
  const char* newest = "select top 1 sCardID from fa_cards order by clng(sCardID) desc";
  file.engine().run("INSERT INTO fa_Cards (sCardID) VALUES ('1'), ('0100'), ('32768')");
  EXPECT_FALSE(guarded(newest));
  EXPECT_TRUE(guarded("select max(cint(sCardID)) from fa_cards")) << "does not hold 32768";
  file.engine().run("INSERT INTO fa_Cards (sCardID) VALUES ('1x')");
  EXPECT_TRUE(guarded(newest));
}

TEST_F(SqlitePlanTest, ARowIsReadByItsKey) {
  const dialect::Translation translation =
      translated("select a.*,b.sName from fa_cards a left join fa_AssetTypes b on a.sTypeNum=b.sNum");
  const auto columns = dialect::test::allColumns(*translation.query);
  EXPECT_THAT(plan(translation.query->rowByKey(columns)), Each(HasSubstr("USING INTEGER PRIMARY KEY")));
}

}  // namespace
}  // namespace zelkor::test
