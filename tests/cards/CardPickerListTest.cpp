#include "cards/CardPickerList.h"
#include "cards/CardVersions.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

class CardPickerListTest : public AccountSetTest {
 protected:
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& method,
                  const std::string& style = "Null", const std::string& disposed = "Null",
                  const std::string& type = "1", const std::string& entered = "#2020-1-1#") {
    execute(
        "insert into fa_Cards "
        "(sCardID,sCardNum,sAssetNum,sAssetName,sStyle,dStartdate,sDeprMethodID,sOperator,"
        "dInputDate,dDisposeDate,iOptType) values ('" +
        cardID + "','" + cardNum + "','A" + cardNum + "','车床'," + style + ",#2019-4-1#,'" + method +
        "','李录入'," + entered + "," + disposed + "," + type + ")");
  }
  Rows picker() {
    Rows rows = textsOf(cardPickerList(context));
    EXPECT_EQ(rows.front().size(), 8u);
    rows.erase(rows.begin());
    return rows;
  }
};

TEST_F(CardPickerListTest, showsTheNewestVersionWithItsMethod) {
  addVersion("9", "00002", "4");
  addVersion("10", "00002", "2", "'C6140'");
  addVersion("11", "00001", "6");
  addVersion("12", "00003", "77");  // a method that the archive does not hold
  EXPECT_EQ(picker(),
            (Rows{{"00001", "A00001", "车床", "", "2019-4-1", "直线法", "李录入", "6"},
                  {"00002", "A00002", "车床", "C6140", "2019-4-1", "平均年限法(一)", "李录入", "2"}}));
  EXPECT_TRUE(cardPickerList(context).columnHidden(7));
}

/// As isCardInForce has it, too.
TEST_F(CardPickerListTest, offersTheCardsInForce) {
  addVersion("1", "00001", "4");
  addVersion("2", "00001", "4", "Null", "#2020-2-1#", "3");  // gone
  addVersion("3", "00002", "4");
  addVersion("4", "00002", "4", "Null", "#2020-6-1#", "3");  // goes in June
  addVersion("5", "00003", "4");
  addVersion("6", "00003", "4", "Null", "Null", "6");  // left its department and came nowhere
  addVersion("7", "00004", "4", "Null", "Null", "8");
  addVersion("8", "00005", "4", "Null", "Null", "1", "#2020-5-16#");  // not yet entered
  addVersion("9", "00006", "4");
  addVersion("10", "00006", "4", "'C6140'");
  addVersion("1", "00007", "4");  // the number of a version of a card that is gone
  std::vector<std::string> listed;
  for (const auto& row : picker()) listed.push_back(row[0]);
  EXPECT_EQ(listed, (std::vector<std::string>{"00002", "00006", "00007"}));
  std::vector<std::string> inForce;
  for (const char* card : {"00001", "00002", "00003", "00004", "00005", "00006", "00007", "00008"}) {
    if (isCardInForce(db(), card, context.gdOpDate)) inForce.emplace_back(card);
  }
  EXPECT_EQ(inForce, listed);
}

TEST_F(CardPickerListTest, isEmptyOnceAVersionsNumberNeedsMoreThanSixteenBits) {
  addVersion("32767", "00001", "4");
  EXPECT_EQ(picker().size(), 1u);
  addVersion("32768", "00002", "4");
  EXPECT_EQ(picker(), Rows());
}

TEST_F(CardPickerListTest, isEmptyWithoutCardsOrFile) {
  EXPECT_EQ(picker(), Rows());
  addVersion("1", "00001", "4");
  context.gstrZtFile = missingFile();
  EXPECT_EQ(picker(), Rows());
}

}  // namespace
}  // namespace zelkor::test
