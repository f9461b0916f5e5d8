#include "base/Conversion.h"
#include "cards/CardFixture.h"
#include "cards/CardSheet.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using enum CardField;

/// May 2020, operator 陈会计.
class CardSheetTest : public CardTest {
 protected:
  CardSheetTest() {
    opArgs.setOpDate(day("2020-5-15"));
    opArgs.setUser("陈会计");
  }
  CardSheet fresh(const std::string& category) {
    return newCard(cards, opArgs, CardMode::Original, category);
  }
  /// The fields that show something.
  static std::string shownText(const CardSheet& sheet) {
    std::string text = sheet.layout == CardLayout::Workload ? "card by workload\n" : "ordinary card\n";
    for (const CardFieldRow& field : cardFields()) {
      const std::string& shown = sheet.texts[field.field];
      if (!shown.empty()) text += "  " + std::string(field.label) + ": " + shown + "\n";
    }
    return text;
  }

  ClsOpArgs opArgs;
};

TEST_F(CardSheetTest, fillsANewCardFromItsCategory) {
  expectGolden("cards/golden/new-cards.txt", shownText(fresh("021")) + shownText(fresh("032")));
}

TEST_F(CardSheetTest, takesWhatTheCategoryLacksFromElsewhere) {
  const struct {
    const char* change;
    const char* life;
    const char* rate;
    const char* method;
  } cases[] = {
      {"update fa_AssetTypes set dblBVRate=null", "10年0月", "0.02", "平均年限法(一)"},
      {"update fa_AssetTypes set dblBVRate=0.035,iLife=66,sDeprMethodNum='9'", "5年6月", "0.04", ""},
      {"delete from fa_AssetTypes", "", "0.02", ""},
  };
  for (const auto& c : cases) {
    execute(c.change);
    const CardSheet sheet = fresh("021");
    EXPECT_EQ(sheet.texts[UsefulLife], c.life) << c.change;
    EXPECT_EQ(sheet.texts[ResidualRate], c.rate) << c.change;
    EXPECT_EQ(sheet.texts[DepreciationMethod], c.method) << c.change;
  }
}

TEST_F(CardSheetTest, showsAStoredCard) {
  ASSERT_TRUE(save(card("00001")));
  ASSERT_TRUE(save(workloadCard("00002"), NewCardType::Original, CardLayout::Workload));
  expectGolden("cards/golden/stored-cards.txt",
               shownText(*storedCard(cards, "1")) + shownText(*storedCard(cards, "2")));
}

TEST_F(CardSheetTest, savesAStoredCardAsItFoundIt) {
  ASSERT_TRUE(save(workloadCard("00001"), NewCardType::Original, CardLayout::Workload));
  const auto stored = rows("select * from fa_Cards");
  const auto ledger =
      rows("select sDeprAssetNum,dblInputValue,dblInputBVRate,lInputLife from fa_DeprTransactions");
  const CardSheet sheet = *storedCard(cards, "1");
  ASSERT_TRUE(cards.UpdateCard(valuesOf(sheet), 5, "00001", sheet.layout));
  EXPECT_EQ(rows("select * from fa_Cards"), stored);
  EXPECT_EQ(rows("select sDeprAssetNum,dblInputValue,dblInputBVRate,lInputLife from fa_DeprTransactions"),
            ledger);
}

TEST_F(CardSheetTest, showsNothingOfACardWithoutItsCategory) {
  ASSERT_TRUE(save(card("00001")));
  EXPECT_FALSE(storedCard(cards, "2").has_value());
  execute("delete from fa_AssetTypes where sNum='021'");
  EXPECT_FALSE(storedCard(cards, "1").has_value());
  cards.CloseZkData();
  cards.setZkDataPath(missingFile());
  EXPECT_FALSE(storedCard(cards, "1").has_value());
}

TEST_F(CardSheetTest, changesTheCategory) {
  CardSheet sheet = fresh("021");
  sheet.texts[AssetName] = "叉车";
  takeCategory(sheet, cards, "032");
  EXPECT_EQ(sheet.texts[AssetNumber] + sheet.texts[CategoryName] + sheet.texts[AssetName],
            "03200001厂内搬运设备叉车");
  EXPECT_EQ(sheet.layout, CardLayout::Workload);
  execute("update AccInformation set cValue='0' where cName='iCardNumType'");
  takeCategory(sheet, cards, "021");
  EXPECT_EQ(sheet.texts[AssetNumber], "03200001") << "numbers are given by hand";
  EXPECT_EQ(sheet.layout, CardLayout::Ordinary);

  ASSERT_TRUE(save(card("00001")));
  CardSheet stored = *storedCard(cards, "1");
  takeCategory(stored, cards, "042");
  EXPECT_EQ(stored.texts[AssetNumber] + stored.texts[DepreciationMethod], "02100001年数总和法");
}

TEST_F(CardSheetTest, turnsWhatIsShownIntoWhatIsStored) {
  CardSheet sheet = fresh("021");
  takeEntry(sheet, Department, "301", "一车间");
  takeEntry(sheet, AdditionWay, "101", "直接购入");
  takeEntry(sheet, UsageStatus, "11", "在用");
  CardValues values = valuesOf(sheet);
  EXPECT_EQ(values[Department] + values[AdditionWay] + values[UsageStatus], "30110111");
  EXPECT_EQ(values[DepreciationMethod] + values[UsefulLife] + values[TotalWorkload], "平均年限法(一)1200");
  const std::pair<const char*, const char*> rates[] = {
      {"0.05", "0.05"}, {"5%", "0.05"}, {"4.5%", "0.045"}, {"0%", "0"}, {"%", "0"}};
  for (const auto& [shown, stored] : rates) {
    sheet.texts[ResidualRate] = shown;
    EXPECT_EQ(valuesOf(sheet)[ResidualRate], stored) << shown;
  }
  sheet.mode = CardMode::Stored;
  EXPECT_EQ(valuesOf(sheet)[DepreciationMethod], "2") << "a stored card is rewritten with the method's sID";
}

TEST(CardLifeTest, readsAndWritesYearsAndMonths) {
  EXPECT_EQ(lifeText(0) + lifeText(66) + lifeText(120), "0年0月5年6月10年0月");
  for (const auto& one : casesIn("cards/lives.txt")) {
    const auto months = monthsOfLife(one[0]);
    EXPECT_EQ(months ? textOfDouble(*months) : "none", one[1]) << one[0];
  }
}

}  // namespace
}  // namespace zelkor::test
