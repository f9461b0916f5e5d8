#include <gmock/gmock.h>

#include "closing/ClosingFixture.h"
#include "closing/DisposalTable.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;

class DisposalTableTest : public ClosingTest {
 protected:
  DisposalTable read(const std::string& rows) {
    CsvReader table("卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因\n" + rows);
    return listDisposals(db(), readDisposalRows(table));
  }
};

TEST_F(DisposalTableTest, ListsAssetsAsTheScreenDoes) {
  enter("00001");
  execute(
      "insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName) values ('10','00001','A10','新车床')");
  const DisposalTable table = read("00001,2020-02-03,205,\"1,000.5\",3,报废\n00009,,,,,\n");
  EXPECT_THAT(table.problems, ElementsAre());
  ASSERT_EQ(table.assets.size(), 2U);
  const DisposedAsset& asset = table.assets[0];
  EXPECT_EQ(asset.sCardNum + "|" + asset.sAssetNum + "|" + asset.sAssetName, "00001|A10|新车床");
  EXPECT_EQ(asset.wayID + "|" + asset.revenue + "|" + asset.cost + "|" + asset.reason, "205|1,000.5|3|报废");
  EXPECT_EQ(asset.way, row("select sID & ' ' & sName from fa_Origins where sID='205'"));
  EXPECT_EQ(table.assets[1].sAssetName + table.assets[1].way, "") << "the disposal itself says so";
}

TEST_F(DisposalTableTest, NamesEveryCellThatTheScreenWouldNotTake) {
  EXPECT_THAT(read("00001,昨天,101,壹,1e,x\n00001,,201,,,\n,,,,,\n0' or '1'='1,,,,,\n").problems,
              ElementsAre("第2行，列“减少日期”：“昨天”不是日期", "第2行，列“减少方式”：减少方式中没有“101”",
                          "第2行，列“清理收入”：“壹”不是数", "第2行，列“清理费用”：“1e”不是数",
                          "第3行，列“卡片编号”：“00001”已在第2行", "第4行，列“卡片编号”：不能为空",
                          "第5行，列“卡片编号”：值中有单引号（'），会打断保存的语句"));
}

}  // namespace
}  // namespace zelkor::test
