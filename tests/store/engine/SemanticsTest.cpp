#include <gmock/gmock.h>

#include "store/StoreFixture.h"

// What a statement in a file of expressions cannot show.
namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class StatementTest : public StoreTest {};

TEST_F(StatementTest, AnAddedRowWithoutANumberGetsTheNext) {
  db.Execute("CREATE TABLE n (i_id COUNTER, sT TEXT(20))");
  db.Execute("insert into n (i_id,sT) values (41,'b')");
  Recordset added = db.OpenRecordset("n");
  added.AddNew();
  added.Collect("i_id", Value());
  added.Collect("sT", "c");
  added.Update();
  EXPECT_THAT(rows("select i_id, sT from n order by i_id"), ElementsAre("41|b", "42|c"));
}

TEST_F(StatementTest, TakesConditionsOfAnyLength) {
  db.Execute("CREATE TABLE n (lN LONG)");
  for (const char* number : {"0", "7", "1999", "2000", "null"})
    db.Execute(std::string("insert into n values (") + number + ")");
  struct Case {
    int length;
    std::vector<std::string> found, left;
  };
  for (const Case& one : {Case{3, {}, {"0", "7", "1999", "2000"}},
                          {4, {}, {"0", "7", "1999", "2000"}},
                          {300, {"7"}, {"0", "1999", "2000"}},
                          {2000, {"7", "1999"}, {"0", "2000"}}}) {
    std::string any = "lN=-1";
    std::string none = "lN<>-1";
    for (int i = 1; i < one.length; ++i) {
      any += " or lN=" + std::to_string(i);
      none += " and lN<>" + std::to_string(i);
    }
    EXPECT_THAT(rows("select lN from n where lN>6 and (" + any + ") order by lN"),
                ElementsAreArray(one.found));
    EXPECT_THAT(rows("select lN from n where " + none + " order by lN"), ElementsAreArray(one.left));
  }
  std::string deep = "1";
  for (int i = 0; i < 5000; ++i) deep += "+1";
  EXPECT_EQ(errorOf([&] { rows("select lN from n where lN=" + deep); }), 3075) << "a sum is as deep as long";
}

}  // namespace
}  // namespace zelkor::test
