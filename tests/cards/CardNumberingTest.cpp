#include "cards/CardFixture.h"

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
  const struct {
    std::vector<std::string> numbers;
    const char* next;
  } cases[] = {
      {{}, "00001"},
      {{"00001", "00012", "00003"}, "00013"},
      {{"00012", "9"}, "00010"},
      {{"00012", "K-7"}, "00001"},
      {{"99999"}, "100000"},
      {{"99999", "100000"}, "100000"},
  };
  setParameter("iCardSequenceNumLength", "8");
  for (const auto& c : cases) {
    execute("delete from fa_Cards");
    for (const std::string& number : c.numbers) addVersion("1", number);
    std::int32_t length = 0;
    EXPECT_EQ(cards.GetNewCardNum(length), c.next);
    EXPECT_EQ(length, 5);
  }
}

TEST_F(CardNumberingTest, countsAssetNumbersWithinTheCategory) {
  const struct {
    const char* highest;
    const char* next;
  } cases[] = {
      {"02100007", "02100008"}, {"021X7", "02100001"}, {"021", "02100001"},
      {"00041", "02100042"},    {"", "02100001"},      {"02199999", "021100000"},
  };
  EXPECT_EQ(cards.GetNewAssetNum("021"), "02100001");
  addVersion("1", "00001", "04100099", "041");
  for (const auto& c : cases) {
    execute("delete from fa_Cards where sTypeNum='021'");
    addVersion("2", "00002", c.highest);
    EXPECT_EQ(cards.GetNewAssetNum("021"), c.next) << c.highest;
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
  const struct {
    const char* current;
    CardMove move;
    const char* reached;
  } cases[] = {
      {"9", CardMove::First, "2"},    {"9", CardMove::Last, "11"}, {"10", CardMove::Previous, "9"},
      {"2", CardMove::Previous, "2"}, {"9", CardMove::Next, "10"}, {"11", CardMove::Next, "11"},
      {"5", CardMove::Previous, "2"}, {"3", CardMove::Next, "10"}, {"1", CardMove::Previous, ""},
      {"abc", CardMove::Next, ""},
  };
  for (const auto& c : cases) {
    method = "";
    EXPECT_EQ(cards.GetAssetCard(c.current, c.move, method), c.reached) << c.current;
    EXPECT_EQ(method, c.reached) << c.current;
  }
}

}  // namespace
}  // namespace zelkor::test
