#include "store/accountset/DbEngine.h"
#include "transfer/jet/JetFixture.h"

namespace zelkor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class JetTablesTest : public JetVersionsTest {
 protected:
  Value asked(const std::string& query) {
    DbEngine engine;
    return engine.OpenDatabase((onServer() ? there_ : copy_).string()).OpenRecordset(query).Fields(0);
  }
  void execute(const std::string& statement) {
    DbEngine engine;
    engine.OpenDatabase((onServer() ? there_ : copy_).string()).Execute(statement);
  }
};

TEST_P(JetTablesTest, FollowsMovedRowsAndPassesOverDeletedOnes) {
  JetFileWriter file = writer();
  JetTable& table = file.table("t", {{"l", JetType::Long}, {"s", JetType::Text, 100}});
  std::vector<std::string> expected;
  for (std::int64_t i = 1; i <= 500; ++i) {
    const JetRowState state = i % 3 == 0   ? JetRowState::Deleted
                              : i % 5 == 0 ? JetRowState::Moved
                                           : JetRowState::Stored;
    const std::string text(static_cast<std::size_t>(i % 90), 'x');
    table.add({i, text}, state);
    if (state != JetRowState::Deleted) expected.push_back(std::to_string(i) + "|'" + text + "'");
  }
  file.close();
  EXPECT_THAT(import(), IsEmpty());
  EXPECT_EQ(cells("t"), expected);
}

TEST_P(JetTablesTest, TakesColumnsThatARowIsTooOldForAsNull) {
  JetFileWriter file = writer();
  JetTable& table = file.table("t", {{"l", JetType::Long},
                                     {"s", JetType::Text, 20},
                                     {"late", JetType::Long},
                                     {"flag", JetType::Boolean},
                                     {"text", JetType::Text, 20}});
  table.add({std::int64_t{1}, std::string("old")});
  table.add({std::int64_t{2}, std::string("new"), std::int64_t{3}, true, std::string("x")});
  table.add({JetCell{}, JetCell{}});
  file.close();
  EXPECT_THAT(import(), IsEmpty());
  EXPECT_THAT(cells("t"), ElementsAre("1|'old'|NULL|0|NULL", "2|'new'|3|-1|'x'", "NULL|NULL|NULL|0|NULL"));
}

TEST_P(JetTablesTest, CarriesAsManyColumnsAsATableCanHave) {
  std::vector<JetColumn> columns;
  std::vector<JetCell> odd;
  std::vector<JetCell> even;
  for (int i = 0; i < 255; ++i) {
    const bool isText = i % 2 == 0;
    columns.push_back({"很长的列名" + std::to_string(i), isText ? JetType::Text : JetType::Long, 10});
    odd.push_back(isText ? JetCell("v" + std::to_string(i)) : JetCell());
    even.push_back(isText ? JetCell() : JetCell(std::int64_t{i}));
  }
  JetFileWriter file = writer();
  JetTable& table = file.table("t", columns);
  table.add(odd);
  table.add(even);
  file.table("empty", {{"l", JetType::Long}});
  file.close();
  EXPECT_THAT(import(), IsEmpty());
  std::string first;
  std::string second;
  for (int i = 0; i < 255; ++i) {
    const std::string bar = i == 0 ? "" : "|";
    first += bar + (i % 2 == 0 ? "'v" + std::to_string(i) + "'" : "NULL");
    second += bar + (i % 2 == 0 ? "NULL" : std::to_string(i));
  }
  EXPECT_THAT(cells("t"), ElementsAre(first, second));
  EXPECT_THAT(cells("empty"), IsEmpty());
}

TEST_P(JetTablesTest, LetsCountersGoOnBehindTheLastNumberThatWasGiven) {
  JetFileWriter file = writer();
  const std::vector<JetColumn> columns = {{"i_id", JetType::Long, 0, true}, {"s", JetType::Text, 10}};
  JetTable& table = file.table("t", columns, {{"PrimaryKey", {"i_id"}, true, true}});
  table.add({std::int64_t{7}, std::string("seven")});
  table.add({std::int64_t{3}, std::string("three")});
  table.setLastCounter(12);
  JetTable& twice = file.table("twice", columns);
  twice.add({std::int64_t{5}, std::string("a")});
  twice.add({std::int64_t{5}, std::string("b")});
  JetTable& once = file.table("once", columns);
  once.add({std::int64_t{9}, std::string("a")});
  file.close();
  EXPECT_THAT(import(), ElementsAre("twice.i_id: 编号有重复或空缺，该列不再自动编号"));
  execute("insert into t (s) values ('next')");
  execute("insert into once (s) values ('next')");
  EXPECT_EQ(asked("select i_id from t where s = 'next'"), Value(13));
  EXPECT_EQ(asked("select i_id from once where s = 'next'"), Value(10));
  EXPECT_EQ(asked("select count(*) from twice where i_id = 5"), Value(2));
}

TEST_P(JetTablesTest, CarriesIndexesAndNamesThoseThatTheRowsRefuse) {
  JetFileWriter file = writer();
  JetTable& table = file.table("t", {{"l", JetType::Long}, {"s", JetType::Text, 10}},
                               {{"PrimaryKey", {"l"}, true, true},
                                {"按名称", {"s", "l"}, false, false},
                                {"broken", {"s"}, true, false}});
  table.add({std::int64_t{1}, std::string("a")});
  table.add({std::int64_t{2}, std::string("a")});
  file.close();
  EXPECT_THAT(import(), ElementsAre(HasSubstr("t: 索引 broken 不能建立")));
  EXPECT_THAT(RawFile(copy_).rows("SELECT lower(name), \"unique\" FROM pragma_index_list('t') ORDER BY 1"),
              ElementsAre("t__primarykey|1", "t__按名称|0"));
  EXPECT_THAT(RawFile(copy_).rows("SELECT name FROM pragma_index_info('t__按名称')"), ElementsAre("s", "l"));
}

TEST_P(JetTablesTest, TellsWhatItDoesNotCarry) {
  JetFileWriter file = writer();
  file.table("t", {{"l", JetType::Long}});
  file.link("elsewhere", "D:\\other.mdb", "original");
  file.query("按部门汇总");
  file.close();
  EXPECT_THAT(
      import(),
      ElementsAre("elsewhere: 是链接表，行在别处（D:\\other.mdb 的 original），未导入；请导入那个文件"));
  EXPECT_THAT(notes_, ElementsAre("不导入的查询 1 个：按部门汇总"));
  EXPECT_THAT(
      RawFile(copy_).rows("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"),
      ElementsAre("t"));
}

// The catalogue decides what a column of its tables is, the file in which order they stand.
TEST_P(JetTablesTest, LaysKnownTablesOutAsTheCatalogueHasThem) {
  JetFileWriter file = writer();
  JetTable& table = file.table(
      "FA_deprLIST", {{"extra", JetType::Byte}, {"DDATE", JetType::Date}, {"iPeriod", JetType::Double}});
  table.add({std::int64_t{1}, 38078.0, 12.0});
  table.add({std::int64_t{2}, JetCell{}, 40000.0});
  table.add({std::int64_t{3}, JetCell{}, 0.5});
  table.add({std::int64_t{4}, JetCell{}, JetCell{}});
  file.close();
  EXPECT_THAT(import(), ElementsAre("fa_DeprList[2].iPeriod: 值不合整型列，存为空值：40000",
                                    "fa_DeprList[3].iPeriod: 值不合整型列，存为空值：0.5"));
  EXPECT_THAT(RawFile(copy_).rows("SELECT extra, dDate, iPeriod FROM fa_DeprList"),
              ElementsAre("1|2004-04-01 00:00:00|12", "2|~|~", "3|~|~", "4|~|~"));
  std::vector<std::string> names;
  const JetSource source(jet_);
  for (const auto& column : source.tables().front().info.columns) names.push_back(column.name);
  EXPECT_THAT(names, ElementsAre("extra", "dDate", "iPeriod", "sLockedBy"));
  EXPECT_THAT(notes_, Contains(HasSubstr("账套还需要而文件里没有的表")));
  EXPECT_THAT(notes_, Contains(HasSubstr("AccInformation")));
}

TEST_P(JetTablesTest, AddsTheColumnsThatAKnownTableLacks) {
  JetFileWriter file = writer();
  JetTable& table = file.table("fa_Cards", {{"sCardID", JetType::Long},
                                            {"sCardNum", JetType::Text, 255},
                                            {"dblValue", JetType::Money},
                                            {"bMultiDept", JetType::Short}});
  table.add({std::int64_t{1}, std::string(200, '9'), std::int64_t{123456}, std::int64_t{-1}});
  table.add({JetCell{}, JetCell{}, JetCell{}, JetCell{}});
  table.add({JetCell{}, JetCell{}, JetCell{}, std::int64_t{255}});
  file.close();
  EXPECT_THAT(import(), ElementsAre("fa_Cards[2].bMultiDept: 值不合是/否列，存为“否”：空值",
                                    "fa_Cards[3].bMultiDept: 值不合是/否列，存为“是”：255"));
  EXPECT_THAT(RawFile(copy_).rows("SELECT typeof(sCardID), length(sCardNum), dblValue, bMultiDept, iOptType, "
                                  "dblDepr, sStyle FROM fa_Cards"),
              ElementsAre("text|200|12.3456|-1|1|0.0|~", "null|~|~|0|1|0.0|~", "null|~|~|-1|1|0.0|~"));
  EXPECT_THAT(notes_, Contains(HasSubstr("表 fa_Cards：文件里没有的列已按缺省值补上：sLockedBy、")));
  EXPECT_THAT(RawFile(copy_).rows("SELECT count(*) FROM pragma_index_list('fa_Cards')"),
              ElementsAre(testing::Ne("0")));
  execute("insert into fa_Cards (sCardID) values ('2')");
  EXPECT_EQ(asked("select iOptType from fa_Cards where sCardID = '2'"), Value(std::int16_t{1}));
}

INSTANTIATE_TEST_SUITE_P(Versions, JetTablesTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4),
                         nameOf);

}  // namespace
}  // namespace zelkor::test
