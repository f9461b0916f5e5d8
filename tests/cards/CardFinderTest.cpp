#include "cards/CardFinder.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class CardFinderTest : public AccountSetTest {
 protected:
  CardFinderTest() {
    finder.setZkDataPath(context.gstrZtFile);
    execute("update fa_AssetTypes set sName='机床' where sNum='021'");
    addVersion("9", "00001", "旧车床", "302");
    addVersion("10", "00001", "车床", "301");
    addVersion("11", "00002", "叉车", "301/302");
    addVersion("12", "00003", "无主", "99");
    execute("insert into fa_DeprTransactions (sCardNum,dblInputDeprTotal) values ('00001',234.5)");
  }
  void addVersion(const std::string& cardID, const std::string& card, const std::string& name,
                  const std::string& departments) {
    execute("insert into fa_Cards (sCardID,sCardNum,sAssetName,sDeptNum,sTypeNum,dblValue) values ('" +
            cardID + "','" + card + "','" + name + "','" + departments + "','021',1234567.5)");
  }
  std::string line(const std::string& card) {
    const auto summary = finder.summaryOf(card);
    return summary ? summaryLine(*summary) : "none";
  }

  CardFinder finder{engine};
};

TEST_F(CardFinderTest, tellsOfACardWhatItsNewestVersionHas) {
  EXPECT_EQ(line("00001"), "名称：车床　　类别：机床　　部门：一车间　　净值：1,234,333.00");
  EXPECT_EQ(line("00002"), "名称：叉车　　类别：机床　　部门：一车间/二车间　　净值：1,234,567.50");
  EXPECT_EQ(line("00003"), "名称：无主　　类别：机床　　净值：1,234,567.50");
  EXPECT_EQ(line("00009"), "none");
  EXPECT_EQ(line("1' or '1'='1"), "none");
}

TEST_F(CardFinderTest, findsEachCardByItsNewestVersion) {
  EXPECT_EQ(finder.textOf("00001"), "车床 一车间 机床");
  EXPECT_EQ(finder.textOf("00002"), "叉车 一车间/二车间 机床");
  EXPECT_EQ(finder.textOf("00009"), "");
  execute("update fa_departments set sName='新车间' where sNum='301'");
  EXPECT_EQ(finder.textOf("00001"), "车床 一车间 机床");
  finder.forget();
  EXPECT_EQ(finder.textOf("00001"), "车床 新车间 机床");
}

TEST_F(CardFinderTest, knowsNothingWhereTheCardsCannotBeRead) {
  execute("drop table fa_Cards");
  EXPECT_EQ(finder.textOf("00001") + line("00001"), "none");
}

}  // namespace
}  // namespace zelkor::test
