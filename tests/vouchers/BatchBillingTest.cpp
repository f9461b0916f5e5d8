#include <gmock/gmock.h>

#include "vouchers/BatchBilling.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

class BatchBillingTest : public VoucherTest {
 protected:
  std::vector<std::string> subjectsAndSides(const BatchBilling& billing) {
    std::vector<std::string> texts;
    const auto lines = textsOf(billing.lines());
    for (std::size_t row = 1; row < lines.size(); ++row)
      texts.push_back(lines[row][5] + lines[row][6] + " " + lines[row][7]);
    return texts;
  }
};

TEST_F(BatchBillingTest, ListsOneRowPerFreeCreditLineOfTheLoginMonth) {
  stageDepreciation();
  stageCard("00001", "12000");
  stageCard("00002", "1234567.895");
  execute("update fa_ZWVouchers set cDefine2='7' where coutno_id='00002'");
  stageCard("00003", "1");
  execute("update fa_ZWVouchers set cDefine1='1' where coutno_id='00003'");
  stageCard("00004", "1");
  execute("update fa_ZWVouchers set ioutperiod=4 where coutno_id='00004'");
  stageCard("00005", "1");
  execute("update fa_ZWVouchers set ioutyear=2019 where coutno_id='00005'");
  stageCard("00006", "0");
  stageCard("00007", "1");
  execute("update fa_ZWVouchers set cDefine1='' where coutno_id='00007'");

  const BatchBilling billing(context);
  expectGolden("vouchers/golden/free-events.txt", gridText(billing.selection()));
  EXPECT_TRUE(billing.selection().columnHidden(selection_column::VoucherKey));
  EXPECT_TRUE(billing.lines().columnHidden(line_column::RowId));
  EXPECT_EQ(billing.usedMergeNumbers(), Texts{"7"});
}

TEST_F(BatchBillingTest, MarksRowsOneByOneAndAllAtOnce) {
  stageCard("00001", "1");
  stageCard("00002", "2");
  BatchBilling billing(context);
  const auto marks = [&] {
    return billing.selection().text(1, selection_column::Mark) + "," +
           billing.selection().text(2, selection_column::Mark);
  };
  billing.toggleMark(2);
  EXPECT_EQ(marks(), ",Y");
  billing.markAll();
  EXPECT_EQ(marks(), "Y,Y");
  billing.toggleMark(1);
  EXPECT_EQ(marks(), ",Y");
  billing.unmarkAll();
  EXPECT_EQ(marks(), ",");
}

TEST_F(BatchBillingTest, LoadsTheLinesOfTheFirstMarkedEvent) {
  stageDepreciation();
  stageCard("00001", "12000");
  BatchBilling billing(context);
  billing.toggleMark(1);
  billing.toggleMark(2);
  EXPECT_THAT(billing.loadLines(), ElementsAre(1U));
  EXPECT_EQ(billing.loadedText(), "折旧计提01");
  std::string lines = gridText(billing.lines());

  billing.toggleMark(1);
  EXPECT_THAT(billing.loadLines(), ElementsAre(2U));
  lines += "\n" + gridText(billing.lines());
  expectGolden("vouchers/golden/lines-of-events.txt", lines);
}

TEST_F(BatchBillingTest, LoadsAMergedSetWhole) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  stageCard("00003", "30");
  BatchBilling billing(context);
  billing.setMergeNumber(1, "1");
  billing.setMergeNumber(2, "2");
  billing.setMergeNumber(3, "1");
  billing.markAll();
  EXPECT_THAT(billing.loadLines(), ElementsAre(1U, 3U));
  EXPECT_EQ(billing.loadedText(), "1");
  EXPECT_EQ(subjectsAndSides(billing), (Texts{"借10.00  ", "贷10.00  ", "借30.00  ", "贷30.00  "}));
}

TEST_F(BatchBillingTest, WithoutAMarkTheLastEventShows) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  BatchBilling billing(context);
  billing.setMergeNumber(2, "5");
  EXPECT_THAT(billing.loadLines(), ElementsAre(2U));
  EXPECT_EQ(billing.loadedText(), "卡片00002");
}

TEST_F(BatchBillingTest, LoadsEveryMonthOfDepreciationByItsOneKey) {
  stageDepreciation();
  execute("update fa_ZWVouchers set ioutperiod=4,cDefine1='1'");
  stageDepreciation();
  BatchBilling billing(context);
  EXPECT_EQ(billing.selection().rows(), 2U);
  billing.loadLines();
  EXPECT_EQ(billing.lines().rows(), 9U);
}

TEST_F(BatchBillingTest, AnEventOfTwoCreditLinesIsListedAndLoadedTwice) {
  stageCard("00001", "10");
  stageCard("00001", "20");
  execute("update fa_ZWVouchers set coutid='00000000000000000001'");
  BatchBilling billing(context);
  billing.toggleMark(1);
  EXPECT_THAT(billing.loadLines(), ElementsAre(1U, 2U));
  EXPECT_EQ(billing.lines().rows(), 9U);
}

TEST_F(BatchBillingTest, AnEmptyListLoadsNothing) {
  BatchBilling billing(context);
  EXPECT_EQ(billing.selection().rows(), 1U);
  billing.markAll();
  EXPECT_TRUE(billing.loadLines().empty());
  EXPECT_EQ(billing.loadedText(), "");
  EXPECT_TRUE(billing.CheckKMH());
  dialogs.expectOk("FrmBatBill ToolSave 错误描述:下标越界", Icon::Exclamation, "固定资产");
  EXPECT_FALSE(billing.ToolSave());
}

TEST_F(BatchBillingTest, KeepsASubjectThatTheChartLacksOut) {
  stageCard("00001", "10");
  BatchBilling billing(context);
  billing.loadLines();
  EXPECT_TRUE(billing.enterSubject(1, "1501"));
  EXPECT_EQ(billing.lines().text(1, line_column::Subject), "1501 固定资产");
  dialogs.expectOk("科目代码错！", Icon::Exclamation, "固定资产");
  EXPECT_FALSE(billing.enterSubject(1, "9999"));
  EXPECT_EQ(billing.lines().text(1, line_column::Subject), "1501 固定资产");
  EXPECT_EQ(errorOf([&] { billing.enterSubject(1, "1'1"); }), 3075);
}

TEST_F(BatchBillingTest, SavesNothingWhileASubjectIsMissing) {
  stageCard("00001", "10");
  BatchBilling billing(context);
  billing.loadLines();
  EXPECT_TRUE(billing.enterSubject(1, "1501"));
  dialogs.expectOk("科目不能为空!", Icon::Exclamation, "固定资产");
  EXPECT_FALSE(billing.ToolSave());
  EXPECT_THAT(staged("ccode,cDefine10"), ElementsAre("~|新增资产", "~|新增资产"));
  EXPECT_EQ(billing.request().scOutSign, "");
}

TEST_F(BatchBillingTest, SavesKeyOrderAndSubjectsOfAnEvent) {
  stageDepreciation();
  stageCard("00001", "10");
  BatchBilling billing(context);
  billing.toggleMark(2);
  billing.loadLines();
  completeSubjects(billing, "1501", "100201");
  EXPECT_TRUE(billing.ToolSave());
  EXPECT_THAT(rows("select i_id,cDefine1,cDefine2,cDefine5,cDefine10,ccode from fa_ZWVouchers where "
                   "coutsign='卡片' order by i_id"),
              ElementsAre("5|~|~|1|卡片(00001)|1501", "6|~|~|2|卡片(00001)|100201"));
  EXPECT_EQ(billing.request().scOutSign, "卡片(00001)");
  EXPECT_EQ(billing.request().eventNumber, "00001");

  billing.unmarkAll();
  billing.toggleMark(1);
  billing.CheckHB = true;
  billing.loadLines();
  completeSubjects(billing, "1501", "1502");
  EXPECT_TRUE(billing.ToolSave());
  EXPECT_THAT(rows("select cDefine2,cDefine5,cDefine10,ccode from fa_ZWVouchers where coutsign='折旧计提' "
                   "order by i_id"),
              ElementsAre("~|1|合并制单(1)|550202", "~|2|合并制单(1)|410502", "~|3|合并制单(1)|410502",
                          "~|4|合并制单(1)|1502"));
  EXPECT_TRUE(billing.request().merge);
  EXPECT_EQ(billing.request().eventNumber, "00001")
      << "a merged voucher keeps the number of the event before";
}

TEST_F(BatchBillingTest, GivesAMergedSetOneKeyAndItsNumber) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  BatchBilling billing(context);
  billing.setMergeNumber(1, "3");
  billing.setMergeNumber(2, "3");
  billing.markAll();
  prepared(billing);
  EXPECT_THAT(staged("cDefine2,cDefine5,cDefine10"),
              ElementsAre("3|1|卡片(00001)", "3|2|卡片(00001)", "3|3|卡片(00001)", "3|4|卡片(00001)"));
  billing.CheckHB = true;
  EXPECT_TRUE(billing.ToolSave());
  EXPECT_THAT(staged("cDefine10"), testing::Each(std::string("合并制单(1)")));
}

TEST_F(BatchBillingTest, NeverMergesTwoLines) {
  stageCard("00001", "10");
  BatchBilling billing(context);
  billing.CheckHB = true;
  const VoucherRequest request = prepared(billing);
  EXPECT_FALSE(request.merge);
  EXPECT_TRUE(request.CheckHB);
  EXPECT_EQ(request.scOutSign, "卡片(00001)");
}

TEST_F(BatchBillingTest, KeepsTheCodeOfASubjectDeletedMeanwhile) {
  stageDepreciation();
  execute("delete from code where ccode='410502'");
  BatchBilling billing(context);
  prepared(billing);
  EXPECT_THAT(staged("ccode"), ElementsAre("550202", "410502", "410502", "1502"));
}

TEST_F(BatchBillingTest, AFailureLeavesTheEarlierLinesRewritten) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  execute("update fa_ZWVouchers set ccode='15''02',cDefine2='1' where i_id=3");
  execute("update fa_ZWVouchers set cDefine2='1'");
  BatchBilling billing(context);
  billing.markAll();
  billing.loadLines();
  completeSubjects(billing, "1501", "1502");
  dialogs.expectOk(
      "FrmBatBill ToolSave 错误描述:语法错误 (操作符丢失) 在查询表达式 "
      "'cDefine2='1',cDefine5='3',cDefine10='卡片(00001)',ccode='15'02' where i_id=3' 中。",
      Icon::Exclamation, "固定资产");
  EXPECT_FALSE(billing.ToolSave());
  EXPECT_THAT(staged("cDefine10,ccode"),
              ElementsAre("卡片(00001)|1501", "卡片(00001)|1502", "新增资产|15'02", "新增资产|~"));
}

}  // namespace
}  // namespace zelkor::test
