#include <algorithm>

#include "archives/ArchiveTrees.h"
#include "archives/ClsBLLType.h"
#include "support/AccountSetFixture.h"

namespace zelkor {

inline void PrintTo(const TreeRow& row, std::ostream* out) {
  *out << row.key << " below " << row.parentKey << ": " << row.text << " [" << row.tag << "]";
}

namespace test {
namespace {

using Rows = std::vector<TreeRow>;

class ArchiveTreesTest : public AccountSetTest {
 protected:
  ArchiveTreesTest() { types.setZkDataPath(context.gstrZtFile); }
  static TreeRow entry(const Rows& tree, const std::string& tag) {
    const auto found = std::ranges::find(tree, tag, &TreeRow::tag);
    return found == tree.end() ? TreeRow{} : *found;
  }

  ClsBLLAssentTypes types{engine};
};

TEST_F(ArchiveTreesTest, hangsCategoriesByTheirNumbersAndTagsThemWithTheirCodes) {
  const Rows tree = archiveTree(types, ArchiveKind::AssetTypes);
  EXPECT_EQ(tree.front(), (TreeRow{"t1", "", "固定资产分类编码表", "&"}));
  EXPECT_EQ(entry(tree, "022"), (TreeRow{"t11", "t3", "动力设备", "022"}));
}

TEST_F(ArchiveTreesTest, putsTheRootFirstWhereverItsRowIs) {
  execute("update fa_AssetTypes set sID='99' where sNum='&'");
  execute("update fa_AssetTypes set sParentID=Null where sNum='01'");
  const Rows tree = archiveTree(types, ArchiveKind::AssetTypes);
  EXPECT_EQ(tree.front().tag, "&");
  EXPECT_EQ(entry(tree, "01").parentKey, "t99");
}

TEST_F(ArchiveTreesTest, takesTheArchivesWithoutAMarkedRootAsTheyAre) {
  const Rows methods = archiveTree(types, ArchiveKind::Methods);
  ASSERT_EQ(methods.size(), 6u);
  EXPECT_TRUE(std::ranges::all_of(methods, [](const TreeRow& row) { return row.parentKey.empty(); }));
  const Rows statuses = archiveTree(types, ArchiveKind::Statuses);
  EXPECT_EQ(entry(statuses, "0").parentKey, "");
  EXPECT_EQ(entry(statuses, "12"), (TreeRow{"t12", "t1", "季节性停用", "12"}));
  types.CloseZkData();
  types.setZkDataPath(missingFile());
  EXPECT_TRUE(archiveTree(types, ArchiveKind::Statuses).empty());
}

TEST_F(ArchiveTreesTest, hangsWhatCanBePickedBelowAHead) {
  execute("insert into fa_departments (sNum,sName,sParentNum,iLevel) values ('0','筹备处','',1)");
  execute("insert into fa_departments (sNum,sName,sParentNum,iLevel) values ('30101','一班','01',3)");
  const Rows departs = departPickTree(db());
  EXPECT_EQ(departs[0], (TreeRow{"N0", "", "固定资产部门编码目录", ""}));
  EXPECT_EQ(entry(departs, "0"), (TreeRow{"N0", "N0", "0 筹备处", "0"}));
  EXPECT_EQ(entry(departs, "302"), (TreeRow{"N302", "N3", "302 二车间", "302"}));
  EXPECT_EQ(entry(departs, "30101"), TreeRow{}) << "two levels";
  EXPECT_EQ(entry(departs, "&"), TreeRow{});
  const Rows statuses = statusPickTree(db());
  EXPECT_EQ(statuses.size(), 10u);
  EXPECT_EQ(statuses[0].text, "使用状况目录表");
  EXPECT_EQ(entry(statuses, "14"), (TreeRow{"N14", "N1", "14 大修理停用", "14"}));
}

TEST_F(ArchiveTreesTest, offersReductionsWithoutAdditions) {
  const Rows ways = reductionPickTree(db());
  EXPECT_EQ(ways.size(), 9u);
  EXPECT_EQ(ways[0].text, "增减方式目录表");
  EXPECT_EQ(ways[1], (TreeRow{"N2", "N0", "2 减少方式", "2"}));
  EXPECT_EQ(entry(ways, "205"), (TreeRow{"N205", "N2", "205 报废", "205"}));
  execute("delete from fa_Origins");
  EXPECT_EQ(reductionPickTree(db()).size(), 1u);
}

TEST_F(ArchiveTreesTest, readsTheWaysNodeByNode) {
  ClsBLLType ways(engine);
  EXPECT_FALSE(ways.rstGetDepartMent("根节点").isOpen()) << "no file yet";
  ways.setZkDataPath(context.gstrZtFile);
  using Lines = std::vector<std::string>;
  EXPECT_EQ(rowsOf(ways.rstGetDepartMent("根节点")), Lines{"0|增减方式||2"});
  EXPECT_EQ(rowsOf(ways.rstGetDepartMent("顶层节点")), Lines{"2|减少方式|0|7"});
  EXPECT_EQ(rowsOf(ways.rstGetDepartMent("1")).front(), "101|直接购入|1|0");
  EXPECT_EQ(rowsOf(ways.rstGetDepartMent("2")).size(), 7u);
  EXPECT_TRUE(ways.rstGetDepartMent("205").Eof());
  EXPECT_FALSE(ways.rstGetDepartMent("2'5").isOpen());
}

}  // namespace
}  // namespace test
}  // namespace zelkor
