#include "cards/CardPickerList.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

class CardPickerListTest : public AccountSetTest {
 protected:
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& method,
                  const std::string& style = "Null", const std::string& disposed = "Null") {
    execute(
        "insert into fa_Cards "
        "(sCardID,sCardNum,sAssetNum,sAssetName,sStyle,dStartdate,sDeprMethodID,sOperator,"
        "dInputDate,dDisposeDate) values ('" +
        cardID + "','" + cardNum + "','A" + cardNum + "','车床'," + style + ",#2019-4-1#,'" + method +
        "','李录入',#2020-1-1#," + disposed + ")");
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
  addVersion("13", "00004", "4", "Null", "#2020-2-1#");
  EXPECT_EQ(picker(), (Rows{{"00001", "A00001", "车床", "", "2019-4-1", "直线法", "李录入", "6"},
                            {"00002", "A00002", "车床", "C6140", "2019-4-1", "平均年限法(一)", "李录入", "2"},
                            {"00004", "A00004", "车床", "", "2019-4-1", "工作量法", "李录入", "4"}}));
  EXPECT_TRUE(cardPickerList(context).columnHidden(7));
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
