#include "cards/CardFixture.h"

namespace zelkor::test {
namespace {

class CardSavingTest : public CardTest {
 protected:
  std::string ledgerMonths(const std::string& cardNum) {
    return row(
        "select dblMonthValue0,dblMonthValue4,dblMonthValue5,dblMonthValue6,dblMonthValue12 "
        "from fa_DeprTransactions where sCardNum='" +
        cardNum + "'");
  }
  std::string count(const std::string& table) { return row("select Count(*) from " + table); }
};

constexpr const char* kCardColumns =
    "select sCardID,sCardNum,lOptID,iOptType,sAssetNum,sAssetName,sDeptNum,sTypeNum,sOrgAddID,sStatusID,"
    "sDeprMethodID,sCurrency,sSite,lLife,dStartDate,dInputDate,sOperator,dblNetValueAct,dblValue,dblBV,"
    "dblBVRate,lUsedMonths,dblTransInDeprTCard,sDeprSubjectNum,sDeprSubjectName,iNewType,iInputPeriod,"
    "dTransDate,dDisposeDate,sStyle,sProjectNum from fa_Cards";

TEST_F(CardSavingTest, writesTheFirstVersion) {
  CardValues values = card("00001");
  ASSERT_TRUE(cards.SaveNewCard(values, 5, NewCardType::Original, CardLayout::Ordinary));
  EXPECT_EQ(values[CardField::DepreciationMethod], "2") << "the name is replaced in place";
  EXPECT_EQ(rows(kCardColumns),
            std::vector<std::string>{
                "1|00001|1|1|02100001|车床|301|021|101|11|2|人民币|东区|120|2020-4-1|2020-5-15|李录入|"
                "12000.5|12000.5|600.03|0.05|1|95|410502|折旧费|1|5|~|~|~|~"});
}

TEST_F(CardSavingTest, writesTheRowsBesideTheCard) {
  ASSERT_TRUE(save(card("00001")));
  EXPECT_EQ(rows("select sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,sDeprSubjectName,sProjectNum,"
                 "sProjectName,cItemclsId from fa_DeptScale"),
            std::vector<std::string>{"00001|1|301|1|410502|折旧费|~|~|~"});
  EXPECT_EQ(rows("select sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,iDisposePeriod,dblValue,dblDecDeprT,"
                 "dblBV,dblCanWork,dblTransInDeprTCard from fa_Cards_Detail"),
            std::vector<std::string>{"1|00001|301|1|~|0|12000.5|0|600.03|0|0"});
  EXPECT_EQ(
      rows("select sCardNum,sDeprAssetNum,iInputPeriod,dblInputValue,dblInputDeprTotal,"
           "dblMonthDeprTotal,dblInputBV,dblMonthBV,dblInputBVRate,dblMonthBVRate,lInputLife,"
           "lInputDeprMonths,sMonthStatusID,dblDeprT4,dblDeprT5,dblDeprT6 from fa_DeprTransactions"),
      std::vector<std::string>{"00001|02100001|5|12000.5|95|95|600.03|600.03|0.05|0.05|120|1|11|0|95|0"});
  EXPECT_EQ(ledgerMonths("00001"), "12000.5|0|0|12000.5|12000.5");
  EXPECT_EQ(rows("select sCardNum,sDeptNum,dblDepr1,dblDeprT12,dblMonthValue1,dblMonthValue5,dblMonthValue6,"
                 "dblMonthValue13,dblDeprThisYear from fa_DeprTransactions_Detail"),
            std::vector<std::string>{"00001|301|0|0|0|0|12000.5|12000.5|0"});
  EXPECT_EQ(count("fa_ZWVouchers"), "0") << "an original card stages nothing";
}

TEST_F(CardSavingTest, leavesNoMonthsAfterDecember) {
  CardValues values = card("00001");
  ASSERT_TRUE(cards.SaveNewCard(values, 12, NewCardType::Original, CardLayout::Ordinary));
  EXPECT_EQ(ledgerMonths("00001"), "12000.5|0|0|0|0");
  EXPECT_EQ(row("select dblMonthValue12,dblMonthValue13 from fa_DeprTransactions_Detail"), "0|12000.5");
  EXPECT_EQ(row("select iInputPeriod from fa_Cards"), "5") << "the card's own month is that of its entry";
}

TEST_F(CardSavingTest, addsTheColumnsOfTheWorkloadMethod) {
  ASSERT_TRUE(save(workloadCard("00001"), NewCardType::Original, CardLayout::Workload));
  const char* columns =
      "select sDeprMethodID,dblPerDepr,dblCanWork,dblCanWorkAct,sWorkUnit,dblOffsetTax,iInputPeriod "
      "from fa_Cards where sCardNum='";
  EXPECT_EQ(row(columns + std::string("00001'")), "4|1.25|9600|9600|小时|1560.07|5");
  ASSERT_TRUE(save(workloadCard("00002"), NewCardType::Original, CardLayout::Ordinary));
  EXPECT_EQ(row(columns + std::string("00002'")), "4|0|0|0|~|0|5");

  CardValues changed = workloadCard("00002");
  changed[CardField::DepreciationMethod] = "4";
  ASSERT_TRUE(cards.UpdateCard(changed, 5, "00002", CardLayout::Workload));
  EXPECT_EQ(row(columns + std::string("00002'")), "4|1.25|9600|9600|小时|1560.07|5");
}

TEST_F(CardSavingTest, takesDepartmentsAndSubjectsWithAndWithoutTheirNames) {
  const struct {
    const char* department;
    const char* subject;
    const char* stored;
  } cases[] = {
      {"302", "", "302||"},
      {"302,二车间,x", "550202", "302|550202|"},  // the name follows below from the chart
      {"303", "9999", "303||"},
      {"303", "1,a,b", "303|1|a,b"},
  };
  const std::string chartName = row("select ccode_name from code where ccode='550202'");
  for (const auto& c : cases) {
    execute("delete from fa_Cards");
    CardValues values = card("00001");
    values[CardField::Department] = c.department;
    values[CardField::DepreciationSubject] = c.subject;
    ASSERT_TRUE(save(values));
    const std::string name = std::string(c.subject) == "550202" ? chartName : "";
    EXPECT_EQ(row("select sDeptNum,sDeprSubjectNum,sDeprSubjectName from fa_Cards"), c.stored + name);
  }
}

TEST_F(CardSavingTest, rewritesAllVersionsButNotTheirIdentity) {
  ASSERT_TRUE(save(card("00001")));
  execute(
      "insert into fa_Cards (sCardID,sCardNum,lOptID,iOptType,iNewType,iInputPeriod) "
      "values ('2','00001',7,10,1,4)");
  ASSERT_TRUE(save(card("00002")));
  CardValues changed = card("00001", "X1");
  changed[CardField::OriginalValue] = "777";
  changed[CardField::AccumulatedDepreciation] = "33.5";
  changed[CardField::DepreciationMethod] = "6";
  changed[CardField::StartDate] = "2019年3月5日";
  changed[CardField::EntryDate] = "2020-02-01";
  ASSERT_TRUE(cards.UpdateCard(changed, 3, "00001", CardLayout::Ordinary));
  EXPECT_EQ(
      rows("select sCardID,lOptID,iOptType,iInputPeriod,sAssetNum,dblValue,dblNetValueAct,"
           "dblTransInDeprTCard,sDeprMethodID,dStartDate,dInputDate from fa_Cards order by val(sCardID)"),
      (std::vector<std::string>{"1|1|1|5|X1|777|777|33.5|6|2019-3-5|2020-2-1",
                                "2|7|10|4|X1|777|777|33.5|6|2019-3-5|2020-2-1",
                                "3|8|1|5|02100001|12000.5|12000.5|95|2|2020-4-1|2020-5-15"}));
  EXPECT_EQ(ledgerMonths("00001"), "33.5|33.5|33.5|33.5|33.5") << "accumulated depreciation, not the value";
  EXPECT_EQ(row("select sDeprAssetNum,iInputPeriod,dblInputValue,dblDeprT3,dblDeprT5 "
                "from fa_DeprTransactions where sCardNum='00001'"),
            "X1|3|777|33.5|95");
  EXPECT_EQ(ledgerMonths("00002"), "12000.5|0|0|12000.5|12000.5");
  EXPECT_EQ(rows("select dblValue from fa_Cards_Detail order by sCardNum"),
            (std::vector<std::string>{"12000.5", "12000.5"}));
}

TEST_F(CardSavingTest, deletesTheCardAndLeavesItsRowsByDepartment) {
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  ASSERT_TRUE(save(card("00002"), NewCardType::AddedInPeriod));
  ASSERT_TRUE(cards.DeleteCard("00001"));
  EXPECT_EQ(rows("select sCardNum from fa_Cards"), std::vector<std::string>{"00002"});
  EXPECT_EQ(rows("select sCardNum from fa_DeprTransactions"), std::vector<std::string>{"00002"});
  EXPECT_EQ(rows("select distinct cDefine9 from fa_ZWVouchers"), std::vector<std::string>{"00002"});
  EXPECT_EQ(count("fa_DeptScale"), "2");
  EXPECT_EQ(count("fa_Cards_Detail"), "2");
  EXPECT_EQ(count("fa_DeprTransactions_Detail"), "2");
}

TEST_F(CardSavingTest, writesNothingWhenTheCardItselfIsRefused) {
  using enum CardField;
  const struct {
    CardField field;
    const char* text;
  } cases[] = {
      {AssetName, "10' container"}, {OriginalValue, ""},        {OriginalValue, "1,200"},
      {UsefulLife, "5年0月"},       {MonthsDepreciated, ""},    {StartDate, ""},
      {EntryDate, "soon"},          {DepreciationMethod, "o'"}, {DepreciationSubject, "41'"},
      {ResidualRate, "5%"},
  };
  for (const auto& c : cases) {
    CardValues values = card("00001");
    values[c.field] = c.text;
    EXPECT_FALSE(save(values)) << cardFieldLabel(c.field) << " " << c.text;
  }
  for (const char* table : {"fa_Cards", "fa_DeptScale", "fa_Cards_Detail", "fa_DeprTransactions"}) {
    EXPECT_EQ(count(table), "0") << table;
  }
}

TEST_F(CardSavingTest, leavesWhatWentBeforeAFailure) {
  context.gstrUser = "O'Brien";
  EXPECT_FALSE(save(card("00001"), NewCardType::AddedInPeriod));
  EXPECT_EQ(count("fa_Cards"), "1");
  EXPECT_EQ(count("fa_DeprTransactions_Detail"), "1");
  EXPECT_EQ(count("fa_ZWVouchers"), "0");
  execute("drop table fa_DeprTransactions");
  EXPECT_FALSE(cards.UpdateCard(card("00001", "X1"), 5, "00001", CardLayout::Ordinary));
  EXPECT_EQ(row("select sAssetNum from fa_Cards"), "X1");
}

TEST_F(CardSavingTest, readsNamesAndCards) {
  ASSERT_TRUE(save(card("00001")));
  EXPECT_EQ(cards.GetDeprMethodName("5"), "年数总和法");
  EXPECT_EQ(cards.GetDeptName("302"), "二车间");
  EXPECT_EQ(cards.GetOrgAddName("103"), "捐赠");
  EXPECT_EQ(cards.GetStatusName("12"), "季节性停用");
  EXPECT_EQ(cards.GetAssetTypeName("041"), "计算机及外部设备");
  EXPECT_EQ(cards.GetAccInformation("IYEARSTODEL"), "5");
  EXPECT_EQ(cards.GetAccInformation("iCardNumType"), "1");
  EXPECT_EQ(cards.GetDeprSubjectName("00001"), "410502,折旧费");
  EXPECT_EQ(cards.GetDeprSubjectName("00009"), "");
  EXPECT_EQ(cards.GetDeprTotal("00001"), 95.0);
  EXPECT_EQ(cards.GetDeprTotal("00009"), 0.0);
  const Recordset stored = cards.GetCard("1");
  EXPECT_EQ(stored.Text("sName") + stored.Text("sAssetName"), "生产设备车床");
  EXPECT_TRUE(cards.GetCard("2").Eof());
  EXPECT_EQ(cards.ExecuteQuery("select sCardNum from FA_CARDS").Text("sCardNum"), "00001");
}

TEST_F(CardSavingTest, isSilentWithoutAFile) {
  ClsBLLFACards nowhere(context);
  nowhere.setZkDataPath(missingFile());
  CardValues values = card("00001");
  std::int32_t length = 3;
  std::string method = "kept";
  EXPECT_EQ(nowhere.GetNewCardNum(length), "");
  EXPECT_EQ(length, 3);
  EXPECT_EQ(nowhere.GetNewAssetNum("021"), "");
  EXPECT_FALSE(nowhere.SaveNewCard(values, 5, NewCardType::Original, CardLayout::Ordinary));
  EXPECT_EQ(values[CardField::DepreciationMethod], "平均年限法(一)");
  EXPECT_FALSE(nowhere.UpdateCard(values, 5, "00001", CardLayout::Ordinary));
  EXPECT_FALSE(nowhere.DeleteCard("00001"));
  EXPECT_EQ(nowhere.GetAssetCard("1", CardMove::First, method), "");
  EXPECT_EQ(method, "kept");
  EXPECT_FALSE(nowhere.GetCard("1").isOpen());
  EXPECT_FALSE(std::filesystem::exists(missingFile()));
}

}  // namespace
}  // namespace zelkor::test
