#include <sstream>

#include "cards/CardChecks.h"
#include "cards/CardEditing.h"
#include "cards/CardFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using enum CardField;

const DateTime kMay15 = day("2020-5-15");

/// "label=text" for the fields in which the values differ, in their order.
std::string differences(const CardValues& before, const CardValues& after) {
  std::string text;
  for (const CardFieldRow& field : cardFields()) {
    if (before[field.field] != after[field.field]) {
      text += " " + std::string(field.label) + "=" + after[field.field];
    }
  }
  return text;
}

CardMode modeNamed(const std::string& name) {
  return name == "original" ? CardMode::Original : name == "new" ? CardMode::NewAsset : CardMode::Stored;
}

/// One line of the golden file with what comes out of it: "mode layout label=text ... : label=entered ->
/// ...".
std::string entered(const std::string& line) {
  const std::string given = line.substr(0, line.find(" ->"));
  std::istringstream words(given);
  std::string mode;
  std::string layout;
  words >> mode >> layout;
  CardSheet sheet;
  sheet.mode = modeNamed(mode);
  if (layout == "workload") sheet.layout = CardLayout::Workload;
  CardValues before;
  FieldEntry entry;
  for (std::string word; words >> word;) {
    const auto sign = word.find('=');
    const CardField field = cardFieldOfLabel(word.substr(0, sign)).value();
    const std::string text = word.substr(sign + 1);
    before = sheet.texts;
    if (words.peek() == EOF) {
      entry = enterField(sheet, field, text, kMay15);
    } else {
      sheet.texts[field] = text;
    }
  }
  const std::string refusal = entry.accepted ? "" : " refused: " + entry.message + "[" + entry.boxText + "]";
  return given + " ->" + differences(before, sheet.texts) + refusal;
}

// Each line gives a card and, last, what is entered into one field; after the arrow stands what the card
// shows otherwise then.
TEST(CardEditingTest, takesWhatIsEnteredAndCalculatesFromIt) {
  const std::string file = "cards/golden/entries.txt";
  std::istringstream lines(readFile(testFolder() / file));
  std::string actual;
  for (std::string line; std::getline(lines, line);) {
    actual += (line.empty() || line[0] == '#' ? line : entered(line)) + "\n";
  }
  expectGolden(file, actual);
}

class CardSavingByEditorTest : public CardTest {
 protected:
  CardSheet complete() {
    CardSheet sheet = newCard(cards, context.gOpArgs, CardMode::NewAsset, "021");
    sheet.texts[AssetName] = "铣床";
    takeEntry(sheet, Department, "301", "一车间");
    takeEntry(sheet, AdditionWay, "101", "直接购入");
    takeEntry(sheet, UsageStatus, "11", "在用");
    enterField(sheet, StartDate, "2020-5-8", kMay15);
    enterField(sheet, OriginalValue, "1000", kMay15);
    return sheet;
  }
};

TEST_F(CardSavingByEditorTest, namesWhatIsMissing) {
  CardSheet sheet;
  sheet.texts[OriginalValue] = "0.00";
  EXPECT_EQ(missingFieldsText(missingFields(sheet)),
            "当前卡片有以下几项未填写或填写不正确：\n"
            "固定资产名称、折旧方法、开始使用日期、原值、部门名称、增加方式、使用状况");
  sheet.mode = CardMode::NewAsset;
  EXPECT_EQ(missingFields(sheet).front(), AssetNumber);
  EXPECT_EQ(missingFields(complete()), std::vector<CardField>{});
  CardSheet one = complete();
  one.texts[OriginalValue] = "0";
  EXPECT_EQ(missingFieldsText(missingFields(one)), "当前卡片有以下几项未填写或填写不正确：\n原值");
}

TEST_F(CardSavingByEditorTest, numbersTheAssetAtLastWhereItMay) {
  CardSheet sheet = complete();
  sheet.texts[AssetNumber].clear();
  execute("update AccInformation set cValue='0' where cName='iCardNumType'");
  EXPECT_EQ(saveCard(sheet, cards, "", 5).missing, std::vector<CardField>{AssetNumber});
  execute("update AccInformation set cValue='1' where cName='iCardNumType'");
  EXPECT_TRUE(saveCard(sheet, cards, "", 5).saved);
  EXPECT_EQ(row("select sAssetNum,iNewType,dblBVRate,lLife,sDeprMethodID from fa_Cards"),
            "02100001|2|0.05|120|2");
}

TEST_F(CardSavingByEditorTest, rewritesTheCardThatTheVersionBelongsTo) {
  ASSERT_TRUE(save(card("00007")));
  CardSheet sheet = *storedCard(cards, "1");
  sheet.texts[AssetNumber].clear();
  sheet.texts[CardNumber] = "00099";
  EXPECT_TRUE(saveCard(sheet, cards, "1", 5).saved);
  EXPECT_EQ(rows("select sCardNum,sAssetNum from fa_Cards"), std::vector<std::string>{"00007|"});
  EXPECT_FALSE(saveCard(sheet, cards, "2", 5).saved) << "the version is gone";
}

TEST_F(CardSavingByEditorTest, savesNothingThatBreaksItsStatement) {
  CardSheet sheet = complete();
  sheet.texts[AssetName] = "10' 铣床";
  const CardSaved result = saveCard(sheet, cards, "", 5);
  EXPECT_TRUE(result.missing.empty());
  EXPECT_FALSE(result.saved);
  EXPECT_EQ(row("select Count(*) from fa_Cards"), "0");
  EXPECT_EQ(sheet.texts[DepreciationMethod], "平均年限法(一)") << "the card still shows the method's name";
}

TEST_F(CardSavingByEditorTest, asksForDetailSubjects) {
  EXPECT_TRUE(isDetailSubject(db(), "410502"));
  EXPECT_FALSE(isDetailSubject(db(), "4105"));
  EXPECT_FALSE(isDetailSubject(db(), "9999"));
  EXPECT_EQ(subjectRefusal("4105"), "此4105在科目表中不存在，或非明细级！");
}

}  // namespace
}  // namespace zelkor::test
