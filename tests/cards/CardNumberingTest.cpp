#include <map>

#include "cards/CardFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class CardNumberingTest : public CardTest {
 protected:
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& assetNum = "",
                  const std::string& typeNum = "021") {
    execute("insert into fa_Cards (sCardID,sCardNum,sAssetNum,sTypeNum) values ('" + cardID + "','" +
            cardNum + "','" + assetNum + "','" + typeNum + "')");
  }
  void setParameter(const std::string& name, const std::string& value) {
    execute("update AccInformation set cValue='" + value + "' where cSysID='FA' and cName='" + name + "'");
  }
};

TEST_F(CardNumberingTest, countsOnFromTheHighestCardNumberAsText) {
  setParameter("iCardSequenceNumLength", "8");
  for (const auto& one : casesIn("cards/card-numbers.txt")) {
    execute("delete from fa_Cards");
    for (std::size_t i = 1; i < one.size(); ++i) addVersion("1", one[i]);
    std::int32_t length = 0;
    EXPECT_EQ(cards.GetNewCardNum(length), one[0]);
    EXPECT_EQ(length, 5);
  }
}

TEST_F(CardNumberingTest, countsAssetNumbersWithinTheCategory) {
  EXPECT_EQ(cards.GetNewAssetNum("021"), "02100001");
  addVersion("1", "00001", "04100099", "041");
  for (const auto& one : casesIn("cards/asset-numbers.txt")) {
    execute("delete from fa_Cards where sTypeNum='021'");
    addVersion("2", "00002", one[1]);
    EXPECT_EQ(cards.GetNewAssetNum("021"), one[0]) << one[1];
  }
  EXPECT_EQ(cards.GetNewAssetNum1("041"), "00100");
}

TEST_F(CardNumberingTest, leavesAssetNumbersToTheHandWhenTold) {
  setParameter("iCardNumType", "0");
  EXPECT_EQ(cards.GetNewAssetNum("021"), "");
  setParameter("iCardNumType", "3");
  EXPECT_EQ(cards.GetNewAssetNum("021"), "02100001");
  execute("delete from AccInformation where cName='iCardNumType'");
  EXPECT_EQ(cards.GetNewAssetNum("021"), "02100001");
}

TEST_F(CardNumberingTest, numbersVersionsAsNumbersOverAllCards) {
  addVersion("9", "00001");
  addVersion("10", "00002");
  execute("update fa_Cards set lOptID=41 where sCardID='9'");
  ASSERT_TRUE(save(card("00003")));
  EXPECT_EQ(row("select sCardID,lOptID from fa_Cards where sCardNum='00003'"), "11|42");
  EXPECT_EQ(cards.GetCardID("00003"), "11");
  addVersion("9", "00003");
  EXPECT_EQ(cards.GetCardID("00003"), "11");
  EXPECT_EQ(cards.GetCardID("00099"), "");
}

TEST_F(CardNumberingTest, walksAllVersionsOfAllCards) {
  std::string method = "kept";
  EXPECT_EQ(cards.GetAssetCard("1", CardMove::First, method), "");
  EXPECT_EQ(method, "kept");
  for (const char* cardID : {"2", "9", "10", "11"}) addVersion(cardID, "00001");
  execute("update fa_Cards set sDeprMethodID=sCardID");
  const std::map<std::string, CardMove> moves = {{"first", CardMove::First},
                                                 {"last", CardMove::Last},
                                                 {"previous", CardMove::Previous},
                                                 {"next", CardMove::Next}};
  for (const auto& one : casesIn("cards/moves.txt")) {
    method = "";
    EXPECT_EQ(cards.GetAssetCard(one[0], moves.at(one[1]), method), one[2]) << one[0];
    EXPECT_EQ(method, one[2]) << one[0];
  }
}

}  // namespace
}  // namespace zelkor::test
