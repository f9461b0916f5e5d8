#include "cards/CardEditing.h"
#include "cards/CardFixture.h"

namespace zelkor::test {
namespace {

using enum CardField;

const DateTime kMay15 = day("2020-5-15");

CardSheet sheetWith(std::initializer_list<std::pair<CardField, const char*>> texts,
                    CardLayout layout = CardLayout::Ordinary) {
  CardSheet sheet;
  sheet.mode = CardMode::Original;
  sheet.layout = layout;
  for (const auto& [field, text] : texts) sheet.texts[field] = text;
  return sheet;
}

TEST(CardEditingTest, calculatesFromTheOriginalValue) {
  const struct {
    const char *typed, *rate, *depreciated;
    const char *value, *residual, *net;
  } cases[] = {
      {"1000.00", "5%", "0.00", "1000.00", "50.00", "1000.00"},
      {"12000.5", "5%", "95", "12000.5", "600.03", "11905.50"},
      {"10000", "0.05", "", "10000", "5.00", "10000.00"},  // the number is a percentage, with or without "%"
      {"", "5%", "0.00", "0", "0.00", "0.00"},
      {"1000000000", "5%", "0", "1000000000", "50000000.75", "1000000000.00"},  // 5 % in single precision
      {"0.3", "0%", "0.1", "0.3", "0.00", "0.20"},
      {".", "5%", "0", ".", "0.00", "0.00"},
      {"99999999999999999999", "0%", "1", "99999999999999999999", "0.00", "100000000000000000000.00"},
  };
  for (const auto& c : cases) {
    CardSheet sheet = sheetWith({{ResidualRate, c.rate}, {AccumulatedDepreciation, c.depreciated}});
    EXPECT_TRUE(enterField(sheet, OriginalValue, c.typed, kMay15).accepted);
    EXPECT_EQ(sheet.texts[OriginalValue], c.value);
    EXPECT_EQ(sheet.texts[ResidualValue], c.residual) << c.typed;
    EXPECT_EQ(sheet.texts[NetValue], c.net) << c.typed;
    EXPECT_FALSE(sheet.texts[AccumulatedDepreciation].empty());
  }
}

TEST(CardEditingTest, calculatesWhatAUnitOfWorkCosts) {
  const struct {
    CardLayout layout;
    const char* work;
    const char* rate;
  } cases[] = {
      {CardLayout::Workload, "9600", "1.18635416666667"},  // (11989 - 600) / 9600
      {CardLayout::Workload, "100000000", "0.00011389"},   // plain, no exponent
      {CardLayout::Workload, "0", "7"},
      {CardLayout::Workload, "", "7"},
      {CardLayout::Ordinary, "9600", "7"},
  };
  for (const auto& c : cases) {
    CardSheet sheet = sheetWith(
        {{ResidualRate, "5%"}, {AccumulatedDepreciation, "11"}, {TotalWorkload, c.work}, {MonthlyRate, "7"}},
        c.layout);
    enterField(sheet, OriginalValue, "12000", kMay15);
    EXPECT_EQ(sheet.texts[MonthlyRate], c.rate) << c.work;
  }
}

TEST(CardEditingTest, calculatesFromTheOtherFigures) {
  const struct {
    CardField field;
    const char* value;
    const char* typed;
    CardField result;
    const char* expected;
  } cases[] = {
      {ResidualRate, "1000.00", "5", ResidualValue, "50.00"},
      {ResidualRate, "1000.00", "4.5%", ResidualValue, "45.00"},
      {ResidualRate, "1000.00", "", ResidualValue, "0.00"},
      {ResidualRate, "1000.00", "5", ResidualRate, "5%"},
      {ResidualValue, "1000", "50", ResidualRate, "5.0%"},
      {ResidualValue, "3000", "100", ResidualRate, "3.3%"},
      {ResidualValue, "1000", "", ResidualRate, "0.0%"},
      {ResidualValue, "1000", "", ResidualValue, "0"},
      {AccumulatedDepreciation, "1000", "0.5", NetValue, "999.50"},
      {AccumulatedDepreciation, "1000", "", NetValue, "1000.00"},
      {NetValue, "1000", "400", NetValue, "400"},
  };
  for (const auto& c : cases) {
    CardSheet sheet = sheetWith({{OriginalValue, c.value}, {NetValue, c.value}});
    EXPECT_TRUE(enterField(sheet, c.field, c.typed, kMay15).accepted) << c.typed;
    EXPECT_EQ(sheet.texts[c.result], c.expected) << cardFieldLabel(c.field) << " " << c.typed;
  }
}

TEST(CardEditingTest, hasNoRateOfAnAssetWithoutValue) {
  CardSheet worthless = sheetWith({{OriginalValue, "0"}, {NetValue, "0"}, {ResidualRate, "5%"}});
  EXPECT_EQ(enterField(worthless, ResidualValue, "50", kMay15).message, "净残值不能大于原值!");
  EXPECT_EQ(worthless.texts[ResidualRate] + worthless.texts[ResidualValue], "0%");
  worthless.texts[ResidualRate] = "5%";
  EXPECT_TRUE(enterField(worthless, ResidualValue, "0", kMay15).accepted);
  EXPECT_EQ(worthless.texts[ResidualRate], "0%");
}

TEST(CardEditingTest, checksTheFiguresInTheirOrder) {
  const struct {
    CardField field;
    const char* typed;
    const char *depreciated, *residual, *net;  // beside an original value of 1000
    const char* message;
  } cases[] = {
      {NetValue, "1000.01", "2000", "3000", "0", "净值不能大于原值!"},
      {NetValue, "1000.00", "2000", "3000", "0", "累计折旧不能大于原值!"},
      {NetValue, "1000", "1000", "3000", "0", "净残值不能大于原值!"},
      {NetValue, "49.99", "0", "50.00", "1000", "净残值不能大于净值!"},
      {NetValue, "50", "0", "50.00", "1000", ""},
      {NetValue, "", "0", "0", "1000", ""},
      {AccumulatedDepreciation, "1000.0001", "0", "0", "1000", "累计折旧不能大于原值!"},
      {AccumulatedDepreciation, "980", "0", "50", "1000", "净残值不能大于净值!"},  // 20 are left
      {AccumulatedDepreciation, "950", "0", "50", "1000", ""},
      {AccumulatedDepreciation, "100", "5000", "50", "-4000", ""},  // puts a wrong card right
      {ResidualValue, "1001", "0", "0", "1000", "净残值不能大于原值!"},
      {ResidualValue, "501", "500", "0", "500", "净残值不能大于净值!"},
      {ResidualValue, "500", "500", "0", "500", ""},
      {ResidualValue, "0", "0", "0", "1001", "净值不能大于原值!"},
  };
  for (const auto& c : cases) {
    CardSheet sheet = sheetWith({{OriginalValue, "1000"},
                                 {AccumulatedDepreciation, c.depreciated},
                                 {ResidualValue, c.residual},
                                 {NetValue, c.net}});
    const std::string before = sheet.texts[c.field];
    const FieldEntry entry = enterField(sheet, c.field, c.typed, kMay15);
    EXPECT_EQ(entry.message, c.message) << cardFieldLabel(c.field) << " " << c.typed;
    EXPECT_EQ(entry.accepted, std::string(c.message).empty());
    if (!entry.accepted) {
      EXPECT_EQ(sheet.texts[c.field], before) << "nothing is taken";
    }
  }
}

TEST(CardEditingTest, checksTheStartDateByMode) {
  constexpr const char* kNoDate = "所填写的日期型数据不正确!";
  constexpr const char* kNotBefore = "原始卡片的开始日期不能在本月或本月之后！";
  constexpr const char* kNotInMonth = "新资产的开始使用日期必须在本月！";
  const struct {
    CardMode mode;
    const char* typed;
    const char* message;
    const char* months;
  } cases[] = {
      {CardMode::Original, "", kNoDate, ""},
      {CardMode::Original, "2020-2-30", kNoDate, ""},
      {CardMode::Original, "2020-5-1", kNotBefore, ""},
      {CardMode::Original, "2020-6-1", kNotBefore, ""},
      {CardMode::Original, "2020-4-30", "", "1"},
      {CardMode::Original, "2018年3月5日", "", "26"},
      {CardMode::NewAsset, "2020-4-30", kNotInMonth, ""},
      {CardMode::NewAsset, "2020-6-1", kNotInMonth, ""},
      {CardMode::NewAsset, "2020.5.31", "", "0"},
      {CardMode::Stored, "2020-7-1", "", "-2"},
      {CardMode::Stored, "soon", kNoDate, ""},
  };
  for (const auto& c : cases) {
    CardSheet sheet = sheetWith({});
    sheet.mode = c.mode;
    const FieldEntry entry = enterField(sheet, StartDate, c.typed, kMay15);
    EXPECT_EQ(entry.message, c.message) << c.typed;
    EXPECT_EQ(entry.accepted, std::string(c.message).empty()) << c.typed;
    EXPECT_EQ(sheet.texts[MonthsDepreciated], c.months) << c.typed;
    EXPECT_EQ(sheet.texts[StartDate], entry.accepted ? c.typed : "") << c.typed;
    EXPECT_EQ(entry.boxText, entry.accepted ? "" : *c.typed == '\0' ? "0" : c.typed);
  }
}

TEST(CardEditingTest, takesNoLifeWithoutYearsAndMonths) {
  CardSheet sheet = sheetWith({{UsefulLife, "5年0月"}});
  const FieldEntry entry = enterField(sheet, UsefulLife, "60", kMay15);
  EXPECT_FALSE(entry.accepted);
  EXPECT_EQ(entry.message + entry.boxText, "5年0月");
  EXPECT_TRUE(enterField(sheet, UsefulLife, "6年3月", kMay15).accepted);
  EXPECT_EQ(sheet.texts[UsefulLife], "6年3月");
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
