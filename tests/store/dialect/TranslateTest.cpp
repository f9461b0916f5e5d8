#include <gtest/gtest.h>

#include "store/catalogue/Catalogue.h"
#include "store/dialect/Translate.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/sqlite/SqliteWords.h"

namespace zelkor::dialect {
namespace {

struct Translated {
  explicit Translated(std::string_view statement, const EngineWords& engine = sqliteWords()) {
    shapeOf(statement, shape);
    translation = translate(statement, shape, catalogueSchema(), engine);
  }
  /// The text that reads some columns of the query.
  std::string rows(std::vector<std::size_t> columns) const {
    return translation.query->rows(columns, Query::Form::Plain);
  }
  std::string print() const { return printable(translation, shape); }

  Shape shape;
  Translation translation;
};

TEST(TranslateTest, StatementsOfOneShapeShareTheirTranslation) {
  const Translated a("update fa_Status set sName='x',iLevel=1 where sID='1' and sName like 'a*'");
  const Translated b("update fa_Status set sName='',iLevel=2.5 where sID='22' and sName like 'bc*'");
  EXPECT_EQ(a.shape.key, b.shape.key);
  EXPECT_EQ(a.translation.sql, b.translation.sql);
}

TEST(TranslateTest, ANarrowedQueryKeepsItsParametersAndItsRows) {
  EXPECT_EQ(
      Translated("select 'a' as x, sName, sID & 'b' as y from fa_Status where iLevel=3").rows({1}),
      R"(SELECT "fa_Status".rowid, "fa_Status"."sName" FROM "fa_Status" WHERE "fa_Status"."iLevel" = ?3)");
  EXPECT_EQ(Translated("select 1 as x,max(sID) as y from fa_Status").rows({0}),
            R"(SELECT ?1, max("fa_Status"."sID") FROM "fa_Status")");
  EXPECT_EQ(Translated("select distinct sID,sName from fa_Status").rows({}),
            R"(SELECT DISTINCT "fa_Status"."sID", "fa_Status"."sName" FROM "fa_Status")");
}

TEST(TranslateTest, PrintsConstantsInPlace) {
  EXPECT_EQ(Translated("insert into fa_Cards (sCardID,dStartdate,lLife,dblValue,bMultiDept) values ('it''s "
                       "?1',#2020-4-5#,'12.5','x',true)")
                .print(),
            R"(INSERT INTO "fa_Cards" ("sCardID", "dStartdate", "lLife", "dblValue", "bMultiDept") )"
            R"(VALUES ('it''s ?1', '2020-04-05 00:00:00', 12, NULL, -1))");
  EXPECT_EQ(Translated("select sID from fa_Status where sName='a' and iLevel>-2", postgreSqlWords()).print(),
            R"(SELECT "fa_status"."zk_row", "fa_status"."sid" FROM "fa_status" WHERE "fa_status"."sname" = )"
            R"('a'::citext AND "fa_status"."ilevel" > -2::double precision ORDER BY "fa_status"."zk_row")");
}

}  // namespace
}  // namespace zelkor::dialect
