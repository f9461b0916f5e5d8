#include <gmock/gmock.h>

#include "store/dialect/CatalogueFile.h"
#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/Translate.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/SchemaCache.h"
#include "store/engine/sqlite/SqliteWords.h"

// Statements that are issued for every card must find their rows through an index.
namespace zelkor::dialect::test {
namespace {

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

  Translation translated(const std::string& statement) {
    const SchemaCache schema(file.engine());
    Shape shape;
    shapeOf(statement, shape);
    return translate(statement, shape, schema, sqliteWords());
  }

  std::string fastRows(const std::string& statement) {
    const Translation translation = translated(statement);
    return translation.query->rows(allColumns(*translation.query), Query::Form::Fast);
  }

  CatalogueFile file;
};

struct PlanCase {
  const char* statement;
  const char* index;
};

TEST_F(SqlitePlanTest, TextsThatHoldNumbersAreReadThroughTheirIndex) {
  for (const PlanCase& one : {
           PlanCase{"Select Top 1 * From FA_Cards Order by clng(sCardID) Desc", "zk_number_fa_Cards_sCardID"},
           PlanCase{"Select Top 1  *   From fa_cards  Order BY Val(sCardID)  Desc  ",
                    "zk_number_fa_Cards_sCardID"},
           PlanCase{"Select top 2 * From FA_Cards Where clng(sCardID)<=5 Order by clng(sCardID) Desc",
                    "zk_number_fa_Cards_sCardID"},
           PlanCase{"Select top 2 * From FA_Cards Where clng(sCardID)>=5 Order by clng(sCardID)",
                    "zk_number_fa_Cards_sCardID"},
           PlanCase{"select Max(val(coutid)) as imax from fa_ZWVouchers", "zk_number_fa_ZWVouchers_coutid"},
       }) {
    const std::vector<std::string> steps = plan(fastRows(one.statement));
    EXPECT_THAT(steps.front(), HasSubstr(one.index)) << one.statement;
    EXPECT_THAT(steps, Each(Not(HasSubstr("FOR ORDER BY"))))
        << "but for rows that are alike: " << one.statement;
  }
}

TEST_F(SqlitePlanTest, TheNumbersOfASheetAreReadThroughIndexes) {
  for (const char* statement :
       {"Select  * From fa_Vouchers  Order By sNum Desc ",
        "Select Top 1 *  From  fa_cardsSheets Order By sID DESC  ", "select max(lOptID) from fa_vouchers",
        "select max(sCardID) from fa_cards", "select max(lOptID) as ch from fa_deptscale",
        "select max(lOptID) as ch from fa_cards_detail where sCardNum='00001'"}) {
    const std::vector<std::string> steps = plan(fastRows(statement));
    EXPECT_THAT(steps, Each(HasSubstr(" INDEX "))) << statement;
    EXPECT_THAT(steps, Each(Not(HasSubstr("TEMP B-TREE")))) << statement;
  }
}

TEST_F(SqlitePlanTest, TheGuardAsksIndexesOnly) {
  for (const char* statement :
       {"Select Top 1 * From FA_Cards Order by clng(sCardID) Desc",
        "select sCardNum from fa_cards where cint(sCardID) in (select max(cint(sCardID)) from fa_cards)",
        "select Max(val(coutid)) as imax from fa_ZWVouchers"}) {
    const std::vector<std::string> steps = plan(*translated(statement).guard);
    for (const std::string& step : steps) {
      const bool reads = step.starts_with("SCAN fa_") || step.starts_with("SEARCH fa_");
      EXPECT_TRUE(!reads || step.find(" INDEX zk_") != std::string::npos) << step;
    }
  }
}

TEST_F(SqlitePlanTest, RowsOfOneCardAreLookedUp) {
  for (const char* statement : {"Select * From FA_Cards Where sCardNum='00001'",
                                "select * from fa_DeprTransactions where sCardNum='00001'",
                                "select * from fa_Cards where sCardNum like '0000*'"}) {
    const std::vector<std::string> steps = plan(fastRows(statement));
    EXPECT_THAT(steps, Each(HasSubstr("SEARCH"))) << statement;
  }
}

TEST_F(SqlitePlanTest, ARowIsReadByItsKey) {
  const Translation translation =
      translated("select a.*,b.sName from fa_cards a left join fa_AssetTypes b on a.sTypeNum=b.sNum");
  const std::vector<std::string> steps = plan(translation.query->rowByKey(allColumns(*translation.query)));
  EXPECT_THAT(steps, Each(HasSubstr("USING INTEGER PRIMARY KEY")));
}

}  // namespace
}  // namespace zelkor::dialect::test
