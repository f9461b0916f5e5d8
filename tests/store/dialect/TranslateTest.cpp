#include <gtest/gtest.h>

#include <array>

#include "base/RuntimeError.h"
#include "store/catalogue/Catalogue.h"
#include "store/dialect/Translate.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/sqlite/SqliteWords.h"
#include "support/Support.h"

namespace zelkor::dialect {
namespace {

struct Translated {
  Shape shape;
  Translation translation;
};

Translated translated(std::string_view statement, const EngineWords& engine = sqliteWords()) {
  Translated result;
  shapeOf(statement, result.shape);
  result.translation = translate(statement, result.shape, catalogueSchema(), engine);
  return result;
}

TEST(TranslateTest, StatementsOfOneShapeShareTheirTranslation) {
  const Translated a =
      translated("update fa_Status set sName='x',iLevel=1 where sID='1' and sName like 'a*'");
  const Translated b =
      translated("update fa_Status set sName='',iLevel=2.5 where sID='22' and sName like 'bc*'");
  EXPECT_EQ(a.shape.key, b.shape.key);
  EXPECT_EQ(a.translation.sql, b.translation.sql);
}

TEST(TranslateTest, ANarrowedQueryKeepsTheNumbersOfItsParameters) {
  const Translated one = translated("select 'a' as x, sName, sID & 'b' as y from fa_Status where iLevel=3");
  const std::array<std::size_t, 1> onlyName{1};
  EXPECT_EQ(
      one.translation.query->rows(onlyName, Query::Form::Plain),
      R"(SELECT "fa_Status".rowid, "fa_Status"."sName" FROM "fa_Status" WHERE "fa_Status"."iLevel" = ?3)");
}

TEST(TranslateTest, WhatMakesOneRowStaysWhenItsColumnsAreLeftOut) {
  EXPECT_EQ(translated("select 1 as x,max(sID) as y from fa_Status")
                .translation.query->rows(std::array<std::size_t, 1>{0}, Query::Form::Plain),
            R"(SELECT ?1, count(*) FROM "fa_Status")");
  EXPECT_EQ(
      translated("select distinct sID,sName from fa_Status").translation.query->rows({}, Query::Form::Plain),
      R"(SELECT DISTINCT "fa_Status"."sID", "fa_Status"."sName" FROM "fa_Status")");
}

TEST(TranslateTest, ARowIsReadByItsKeysEvenWithoutItsPartner) {
  const Translated one = translated(
      "select a.sID,b.sName from fa_Status a left join fa_Origins b on a.sID=b.sID where a.iLevel=1");
  const std::array<std::size_t, 2> both{0, 1};
  EXPECT_EQ(
      one.translation.query->rowByKey(both),
      R"(SELECT "a"."sID", "b"."sName" FROM "fa_Status" AS "a" LEFT JOIN "fa_Origins" AS "b" ON "b".rowid = ?3 )"
      R"(WHERE "a".rowid = ?2)");
  EXPECT_EQ(translated("select a.sID,b.sName from fa_Status a,fa_Origins b", postgreSqlWords())
                .translation.query->rowByKey(both),
            R"(SELECT "a"."sid", "b"."sname" FROM "fa_status" AS "a", "fa_origins" AS "b" )"
            R"(WHERE "a"."zk_row" = $1::bigint AND "b"."zk_row" = $2::bigint)");
}

TEST(TranslateTest, CriteriaNameOutputColumnsBeforeColumnsOfTables) {
  const Translated one = translated("select sID as sName,iLevel from fa_Status where iLevel<9 order by sID");
  EXPECT_EQ(one.translation.query->keysWhere("sName='it''s' and sParentID like '1*' or iLevel=2"),
            "SELECT \"fa_Status\".rowid FROM \"fa_Status\" WHERE "
            "(\"fa_Status\".\"sID\" = 'it''s' AND \"fa_Status\".\"sParentID\" >= '1' AND "
            "\"fa_Status\".\"sParentID\" "
            "< '1\xF4\x8F\xBF\xBF' OR \"fa_Status\".\"iLevel\" = 2) ORDER BY \"fa_Status\".\"sID\"");
  EXPECT_EQ(test::errorOf([&] { (void)one.translation.query->keysWhere("sNothing=1"); }), 3061);
}

TEST(TranslateTest, PrintsConstantsInPlace) {
  const Translated one = translated(
      "insert into fa_Cards (sCardID,dStartdate,lLife,dblValue,bMultiDept) values ('it''s "
      "?1',#2020-4-5#,'12.5','x',true)");
  EXPECT_EQ(printable(one.translation, one.shape),
            "INSERT INTO \"fa_Cards\" (\"sCardID\", \"dStartdate\", \"lLife\", \"dblValue\", \"bMultiDept\") "
            "VALUES "
            "('it''s ?1', '2020-04-05 00:00:00', 12, NULL, -1)");
  const Translated query =
      translated("select sID from fa_Status where sName='a' and iLevel>-2", postgreSqlWords());
  EXPECT_EQ(printable(query.translation, query.shape),
            "SELECT \"fa_status\".\"zk_row\", \"fa_status\".\"sid\" FROM \"fa_status\" WHERE "
            "\"fa_status\".\"sname\" = "
            "'a'::citext AND \"fa_status\".\"ilevel\" > -2::double precision ORDER BY "
            "\"fa_status\".\"zk_row\"");
}

}  // namespace
}  // namespace zelkor::dialect
