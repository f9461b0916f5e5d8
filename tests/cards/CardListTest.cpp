#include "cards/CardList.h"
#include "cards/CardTree.h"
#include "cards/ClsBLLManageCards.h"
#include "support/AccountSetFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class CardListTest : public AccountSetTest {
 protected:
  CardListTest() { cards.setZkDataPath(context.gstrZtFile); }

  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& value = "100",
                  const std::string& disposed = "Null") {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sAssetNum,dStartdate,lLife,dblValue,dblBVRate,sOperator,"
        "sDeptNum,sTypeNum,dDisposeDate) values ('" +
        cardID + "','" + cardNum + "','A" + cardNum + "',#2019-4-1#,60," + value +
        ",0.05,'李录入','301','021'," + disposed + ")");
  }
  /// Card numbers and values of the list, the sum last.
  std::vector<std::string> listed(const std::string& condition = "") {
    CardList reading(cards.rstGetCards(condition));
    std::vector<std::string> found;
    for (const auto& row : textsOf(reading.next(1000))) found.push_back(row[1] + " " + row[4]);
    EXPECT_TRUE(reading.complete());
    return found;
  }

  ClsBLLManageCards cards{engine};
};

using Listed = std::vector<std::string>;

TEST_F(CardListTest, showsEachCardInItsForm) {
  addVersion("1", "00002", "1234567.891");
  execute(
      "insert into fa_Cards (sCardID,sCardNum,dStartdate,lLife,dblValue,dblBVRate) values "
      "('2','00001',#2019-12-31 8:05:00#,Null,Null,Null)");
  execute(
      "insert into fa_Cards (sCardID,sCardNum,lLife,dblValue,dblBVRate) values ('3','00003',50,0.5,0.125)");
  execute("insert into fa_Cards (sCardID,sCardNum,lLife,dblValue,dblBVRate) values ('4','00004',7,0,0)");
  expectGolden("cards/golden/list.txt",
               gridText(CardList::heading()) + gridText(CardList(cards.rstGetCards("")).next(1000)));
}

TEST_F(CardListTest, showsTheNewestVersionOfACardAndCountsItOnce) {
  addVersion("9", "00001", "100");
  addVersion("10", "00001", "250.25");
  addVersion("11", "00002", "1");
  EXPECT_EQ(listed(), (Listed{"00001 250.25", "00002 1.00", "合计： 251.25"}));
}

TEST_F(CardListTest, ranksVersionsAsTextOverAllCardsUnderACondition) {
  addVersion("8", "00001", "100");
  addVersion("9", "00001", "200");
  addVersion("10", "00001", "250.25");
  EXPECT_EQ(listed("  sDeptNum='301' "), (Listed{"00001 200.00", "合计： 200.00"}));
  execute("update fa_Cards set sDeptNum='302' where sCardID='9'");
  EXPECT_EQ(listed("  sDeptNum='301' "), (Listed{"合计： .00"}));
  addVersion("8", "00002", "1");
  EXPECT_EQ(listed("  sDeptNum='301' "), (Listed{"00001 100.00", "00002 1.00", "合计： 101.00"}));
}

TEST_F(CardListTest, filtersByTheDisposalOfTheHighestVersion) {
  addVersion("1", "00001", "100");
  addVersion("2", "00002", "20");
  addVersion("3", "00002", "20", "#2020-5-1#");
  const struct {
    CardFilter filter;
    const char* node;
    Listed expected;
  } cases[] = {
      {CardFilter::InService, "", {"00001 100.00", "合计： 100.00"}},
      {CardFilter::All, "  sTypeNum='021' ", {"00001 100.00", "00002 20.00", "合计： 120.00"}},
      {CardFilter::Disposed, "  sDeptNum='301' ", {"00002 20.00", "合计： 20.00"}},
      {CardFilter::InService, "  sDeptNum='302' ", {"合计： .00"}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(listed(cardListCondition(each.node, each.filter)), each.expected)
        << each.node << cardFilterName(each.filter);
  }
}

TEST_F(CardListTest, comesInPiecesWithTheSumBehindTheLast) {
  for (const char* id : {"1", "2", "3", "4"}) addVersion(id, std::string("0000") + id);
  addVersion("5", "00002", "300");
  CardList reading(cards.rstGetCards(""));
  EXPECT_EQ(reading.next(2).rows(), 2u);
  EXPECT_FALSE(reading.complete());
  EXPECT_EQ(reading.cards(), 2u);
  const TextGrid rest = reading.next(2);
  EXPECT_TRUE(reading.complete()) << "an older version is no further card";
  EXPECT_EQ(reading.cards(), 4u);
  EXPECT_EQ(rest.rows(), 3u);
  EXPECT_EQ(rest.text(2, 4), "600.00");
  EXPECT_EQ(reading.next(2).rows(), 0u) << "the sum comes once";
}

TEST_F(CardListTest, addsUpWithoutLosingACent) {
  for (int i = 1; i <= 300; ++i) addVersion(std::to_string(i), std::to_string(1000 + i), "9999999999.01");
  EXPECT_EQ(listed().back(), "合计： 2,999,999,999,703.00");
}

TEST(CardListCaptionTest, namesTheNodeOrTheFilterAndTheCount) {
  EXPECT_EQ(cardListCaption("", CardFilter::All, 12), "卡片管理 卡片[全部卡片  ](共计卡片12张)");
  EXPECT_EQ(cardListCaption("一车间", CardFilter::InService, 3),
            "卡片管理 卡片[一车间  在役资产](共计卡片3张)");
}

TEST_F(CardListTest, listsTheCardsOfFiveThousandDepartments) {
  for (int i = 0; i < 5000; ++i) {
    execute("insert into fa_Departments (sNum,sName,sParentNum,lChilds) values ('9" + std::to_string(i) +
            "','车间','9',0)");
  }
  addVersion("1", "00001");
  addVersion("2", "00002");
  execute("update fa_Cards set sDeptNum='94999' where sCardNum='00002'");
  const auto condition = cardTreeCondition(cards, {CardQuery::ByDepartment, "9", "总厂", 5000});
  EXPECT_EQ(listed(condition.value()), (Listed{"00002 100.00", "合计： 100.00"}));
}

}  // namespace
}  // namespace zelkor::test
