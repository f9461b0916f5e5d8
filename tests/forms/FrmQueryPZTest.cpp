#include "forms/VoucherForms.h"
#include "vouchers/FrmQueryPZ.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "凭证查询";

class FrmQueryPZTest : public VoucherFormTest {
 protected:
  FrmQueryPZ& open() { return host.show<FrmQueryPZ>(context.gstrZtFile); }
  static Lines list(const QWidget& form) { return body(form, "MshPZ"); }
};

TEST_F(FrmQueryPZTest, listsTheVouchersOfThePeriods) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(depreciationVoucher()));
  execute("update GL_accvouch set ibook=1 where ino_id=2");
  const FrmQueryPZ& form = open();
  EXPECT_THAT(list(form), ElementsAre("2020-05-15|卡片|00001|陈会计|2020-05-15|记--1|未记账",
                                      "2020-05-15|折旧计提||陈会计|2020-05-15|记--2|记账"));
  EXPECT_EQ(control<QStatusBar>(form, "StatusBar1").currentMessage(), "共 2 张凭证");
  choose(form, "cmdStart", "2020.06");
  EXPECT_THAT(list(form), IsEmpty());
  choose(form, "cmdStart", "2020.01");
  EXPECT_EQ(list(form).size(), 2U) << "to the open month";
}

TEST_F(FrmQueryPZTest, deletesAVoucherAndFreesItsEvent) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(cardVoucher("00002", "20")));
  const FrmQueryPZ& form = open();
  gridOf(form, "MshPZ").selectGridRow(2);
  tells("删除成功！", Icon::Information, kTitle);
  press(form, "删除");
  EXPECT_THAT(list(form), ElementsAre("2020-05-15|卡片|00001|陈会计|2020-05-15|记--1|未记账"));
  EXPECT_THAT(ledger("ino_id"), ElementsAre("1", "1"));
  EXPECT_THAT(staged("coutno_id,cDefine1"), ElementsAre("00001|1", "00001|1", "00002|~", "00002|~"));
  execute("update GL_accvouch set coutno_id='O''1'");
  const FrmQueryPZ& broken = open();
  tells("删除失败！", Icon::Exclamation, kTitle);
  press(broken, "删除");
  EXPECT_EQ(list(broken).size(), 1U);
}

TEST_F(FrmQueryPZTest, deletesNothingFromAnEmptyList) {
  const FrmQueryPZ& form = open();
  press(form, "删除");
  press(form, "退出");
  EXPECT_EQ(endStatus(), -1);
  tells("文件[" + missingFile() + "]不存在！", Icon::Exclamation, kTitle);
  EXPECT_THAT(list(host.show<FrmQueryPZ>(missingFile())), IsEmpty());
}

}  // namespace
}  // namespace zelkor::test
