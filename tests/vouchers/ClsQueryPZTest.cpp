#include <gmock/gmock.h>

#include "vouchers/ClsQueryPZ.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ClsQueryPZTest : public VoucherTest {
 protected:
  ClsQueryPZTest() { query.setZkDataPath(context.gstrZtFile); }

  TextGrid list(int first = 5, int last = 5) { return queriedVouchers(query.rstGetCards(first, last)); }
  std::vector<std::string> numbers(int first = 5, int last = 5) {
    std::vector<std::string> texts;
    const TextGrid grid = list(first, last);
    for (std::size_t row = 1; row < grid.rows(); ++row)
      texts.push_back(grid.text(row, query_column::VoucherNumber));
    return texts;
  }
  bool deleteRow(std::size_t row) {
    return deleteQueriedVoucher(context, query, queriedVoucher(list(), row));
  }

  ClsQueryPZ query{context};
};

TEST_F(ClsQueryPZTest, ListsEachVoucherOnce) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(depreciationVoucher()));
  EXPECT_TRUE(saveVoucher(cardVoucher("00002", "20")));
  execute("update GL_accvouch set ibook=1,doutbilldate=#2020-5-2# where ino_id=3");
  const auto texts = textsOf(list());
  using Row = std::vector<std::string>;
  EXPECT_EQ(texts[0], (Row{"业务日期", "业务类型", "业务号", "制单人", "凭证日期", "凭证号", "标志", ""}));
  EXPECT_THAT(
      std::vector(texts.begin() + 1, texts.end()),
      ElementsAre(
          Row{"2020-05-15", "卡片", "00001", "陈会计", "2020-05-15", "记--1", "未记账", "卡片(00001)"},
          Row{"2020-05-15", "折旧计提", "", "陈会计", "2020-05-15", "记--2", "未记账", "折旧计提()"},
          Row{"2020-05-02", "卡片", "00002", "陈会计", "2020-05-15", "记--3", "记账", "卡片(00002)"}));
}

TEST_F(ClsQueryPZTest, ListsTheModulesUncancelledVouchersOfThePeriods) {
  for (const char* row :
       {"4,11,0,'FA,#'", "5,12,Null,'FA,#'", "6,13,1,'FA,#'", "6,14,0,'AR,#'", "6,15,2,'FA,#'"}) {
    execute(
        "insert into GL_accvouch (iperiod,ino_id,iflag,ccodecontrol,csign,coutsign,coutno_id,dbill_date) "
        "values (" +
        std::string(row) + ",'记','卡片','00001',#2020-5-" + std::string(row).substr(2, 2) + "#)");
  }
  EXPECT_THAT(numbers(4, 6), ElementsAre("记--11", "记--12", "记--15"));
  EXPECT_THAT(numbers(6, 12), ElementsAre("记--15"));
  EXPECT_THAT(numbers(7, 6), ElementsAre("记--15")) << "in either order";
}

TEST_F(ClsQueryPZTest, DeletingFreesTheStagedRows) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(cardVoucher("00002", "20")));
  execute("update GL_accvouch set ibook=1");
  dialogs.expectOk("删除成功！", Icon::Information, "凭证查询");
  EXPECT_TRUE(deleteRow(1));
  EXPECT_THAT(numbers(), ElementsAre("记--2"));
  EXPECT_THAT(staged("coutno_id,cDefine1"), ElementsAre("00001|~", "00001|~", "00002|1", "00002|1"));
  const BatchBilling billing(context);
  ASSERT_EQ(billing.selection().rows(), 2U);
  EXPECT_EQ(billing.selection().text(1, selection_column::Number), "00001");
}

TEST_F(ClsQueryPZTest, TheMonthOfTheVouchersDateIsFreed) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  execute("update GL_accvouch set dbill_date=#2020-4-30#");
  dialogs.expectOk("删除成功！", Icon::Information, "凭证查询");
  EXPECT_TRUE(deleteRow(1));
  EXPECT_THAT(numbers(), IsEmpty());
  EXPECT_THAT(staged("cDefine1"), ElementsAre("1", "1")) << "they are staged in May";
}

TEST_F(ClsQueryPZTest, AVoucherWithoutEventNumberStays) {
  EXPECT_TRUE(saveVoucher(depreciationVoucher()));
  dialogs.expectOk("删除成功！", Icon::Information, "凭证查询");
  EXPECT_TRUE(deleteRow(1));
  EXPECT_THAT(numbers(), ElementsAre("记--1"));
  EXPECT_THAT(staged("cDefine1"), ElementsAre("1", "1", "1", "1"));
}

TEST_F(ClsQueryPZTest, TellsAFailedDeletion) {
  dialogs.expectOk("删除失败！", Icon::Exclamation, "凭证查询");
  EXPECT_FALSE(deleteQueriedVoucher(context, query, {"卡片", "0'1", "2020-05-15", "卡片(0'1)"}));
}

TEST_F(ClsQueryPZTest, TellsAMissingFile) {
  query.setZkDataPath(missingFile());
  dialogs.expectOk("文件[" + missingFile() + "]不存在！", Icon::Exclamation, "凭证查询");
  EXPECT_FALSE(query.OpenZkData());
}

TEST_F(ClsQueryPZTest, ReadsThePickersPeriod) {
  EXPECT_EQ(queryPeriodText(day("2020-5-15")), "2020.05");
  EXPECT_EQ(queryPeriodMonth("2020.05"), 5);
  EXPECT_EQ(queryPeriodMonth("2020.12"), 12);
  EXPECT_EQ(queryPeriodMonth("五月"), 0);
}

}  // namespace
}  // namespace zelkor::test
