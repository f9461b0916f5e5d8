#include <gmock/gmock.h>

#include <optional>

#include "vouchers/VoucherFill.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

constexpr const char* kTitle = "固定资产";

class VoucherFillTest : public VoucherTest {
 protected:
  /// Two additions merged by subject: 30 on each side, one line per subject.
  VoucherRequest mergedVoucher() {
    stageCard("00001", "10");
    stageCard("00002", "20");
    BatchBilling billing(context);
    billing.setMergeNumber(1, "1");
    billing.setMergeNumber(2, "1");
    billing.markAll();
    billing.CheckHB = true;
    return prepared(billing);
  }
  Voucher loaded(const VoucherRequest& request) {
    Voucher shown;
    VoucherFill(context, request, shown).LoadVouch();
    return shown;
  }
  /// Opens the window with the key's voucher.
  VoucherFill& open(const VoucherRequest& request) {
    window.emplace(context, request, voucher);
    window->LoadVouch();
    return *window;
  }

  Voucher voucher;
  std::optional<VoucherFill> window;
};

TEST_F(VoucherFillTest, ASaveWaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  saveVoucher(cardVoucher("00001", "10"));
  open(depreciationVoucher());
  voucher.Row(4).SubjectCode = "1502";
  const std::uint64_t before = db().waits();
  EXPECT_TRUE(window->Save());
  engine.flush();
  EXPECT_EQ(db().waits() - before, 4U) << "forced to disk included";
}

TEST_F(VoucherFillTest, ShowsTheStagedLinesOfTheKey) {
  const Voucher shown = loaded(depreciationVoucher());
  EXPECT_EQ(shown.Caption, "记账凭证");
  EXPECT_EQ(shown.VoucherSign, "记");
  EXPECT_EQ(shown.SignSeq, 1);
  EXPECT_TRUE(shown.AllowBrowseSign);
  EXPECT_EQ(shown.VoucherDate, day("2020-5-15"));
  EXPECT_EQ(shown.BillMaker, "陈会计");
  EXPECT_EQ(shown.VoucherState, voucher_state::Normal);
  EXPECT_THAT(
      linesOf(shown),
      ElementsAre("计提第[5]期间折旧|550202|折旧费|20.5|0", "计提第[5]期间折旧|410502|折旧费|100.25|0",
                  "计提第[5]期间折旧|410502|折旧费|50|0", "计提第[5]期间折旧|1502|累计折旧|0|170.75"));
  EXPECT_TRUE(totalsOf(shown).balanced());
}

TEST_F(VoucherFillTest, OrdersTheLinesByTheTextOfTheirNumber) {
  VoucherRequest request = cardVoucher("00001", "10");
  execute("update fa_ZWVouchers set cDefine5='10' where i_id=1");
  EXPECT_THAT(linesOf(loaded(request)),
              ElementsAre("直接购入|1501|固定资产|10|0", "直接购入|1502|累计折旧|0|10"));
  execute("update fa_ZWVouchers set cDefine5='3' where i_id=1");
  EXPECT_THAT(linesOf(loaded(request)),
              ElementsAre("直接购入|1502|累计折旧|0|10", "直接购入|1501|固定资产|10|0"));
}

TEST_F(VoucherFillTest, AKeyWithoutRowsShowsNothing) {
  stageCard("00001", "10");
  for (const char* rows : {"ioutperiod=6", "ioutperiod=5,ioutyear=2019"}) {
    execute("update fa_ZWVouchers set cDefine10='卡片(00001)'," + std::string(rows));
    const Voucher shown = loaded({.scOutSign = "卡片(00001)", .eventNumber = "00001"});
    EXPECT_EQ(shown.RowCount(), 0U);
    EXPECT_EQ(shown.VoucherSign, "");
    EXPECT_FALSE(shown.AllowBrowseSign);
  }
}

TEST_F(VoucherFillTest, WithoutVoucherTypesNoneIsChosen) {
  const VoucherRequest request = cardVoucher("00001", "10");
  execute("delete from dsign");
  open(request);
  EXPECT_EQ(voucher.Caption, "");
  EXPECT_TRUE(voucher.AllowBrowseSign);
  dialogs.expectOk("凭证类别不合法", Icon::Exclamation, kTitle);
  EXPECT_FALSE(window->Save());
  EXPECT_THAT(ledger("inid"), IsEmpty());
}

TEST_F(VoucherFillTest, SavesTheEntriesAndMarksTheStagedRows) {
  stageCard("00009", "1");
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "12345.67")));
  expectLedger("an-entered-voucher");
  EXPECT_THAT(staged("coutno_id,cDefine1"), ElementsAre("00009|~", "00009|~", "00001|1", "00001|1"));
  EXPECT_EQ(BatchBilling(context).selection().rows(), 2U);
}

TEST_F(VoucherFillTest, NumbersOverAllPeriodsAndRefusesWhatAShortCannotHold) {
  execute("insert into GL_accvouch (iperiod,ino_id,inid) values (3,41,1)");
  EXPECT_TRUE(saveVoucher(depreciationVoucher()));
  EXPECT_THAT(rows("select distinct ino_id,coutsign,coutno_id from GL_accvouch where iperiod=5"),
              ElementsAre("42|折旧计提|~"));
  execute("insert into GL_accvouch (iperiod,ino_id,inid) values (3,32767,1)");
  const VoucherRequest request = cardVoucher("00001", "10");
  EXPECT_EQ(errorOf([&] { saveVoucher(request); }), 6);
  EXPECT_EQ(row("select count(*) from GL_accvouch where coutsign='卡片'"), "0");
}

TEST_F(VoucherFillTest, AMergedVoucherHasOneLinePerSubjectWithoutDigest) {
  open(mergedVoucher());
  EXPECT_THAT(linesOf(voucher), ElementsAre("|1501|固定资产|30|0", "|1502|累计折旧|0|30"));
  dialogs.expectOk("摘要不能为空!", Icon::Critical, kTitle);
  EXPECT_FALSE(window->Save());
  voucher.Row(1).Digest = voucher.Row(2).Digest = "购入";
  EXPECT_TRUE(window->Save());
  EXPECT_THAT(ledger("ino_id,inid,ccode,md,mc,coutsign,coutno_id"),
              ElementsAre("1|1|1501|30|0|合并制单|~", "1|2|1502|0|30|合并制单|~"));
  EXPECT_THAT(staged("cDefine1"), ElementsAre("1", "1", "1", "1"));
}

TEST_F(VoucherFillTest, ASubjectOnBothSidesLosesItsDebitWhenMerged) {
  const VoucherRequest request = mergedVoucher();
  execute("update fa_ZWVouchers set ccode='1501' where i_id=4");
  const Voucher shown = loaded(request);
  EXPECT_THAT(linesOf(shown), ElementsAre("|1501|固定资产|0|20", "|1502|累计折旧|0|10"));
  EXPECT_EQ(totalsOf(shown).difference(), Currency::fromDouble(-30));
}

TEST_F(VoucherFillTest, SavesWhatDoesNotBalance) {
  open(cardVoucher("00001", "10"));
  EXPECT_TRUE(enterAmount(voucher.Row(2), VoucherSide::Credit, "9.5"));
  EXPECT_TRUE(window->Save());
  EXPECT_THAT(ledger("md,mc"), ElementsAre("10|0", "0|9.5"));
}

TEST_F(VoucherFillTest, TakesAQuoteInADigest) {
  open(cardVoucher("00001", "10"));
  voucher.Row(1).Digest = "O'Neil 的车床";
  EXPECT_TRUE(window->Save());
  EXPECT_THAT(ledger("cdigest"), ElementsAre("O'Neil 的车床", "直接购入"));
}

TEST_F(VoucherFillTest, KeepsASubjectDeletedBeforeBilling) {
  const VoucherRequest request = cardVoucher("00001", "10");
  execute("delete from code where ccode='1501'");
  EXPECT_THAT(linesOf(loaded(request)), ElementsAre("直接购入|1501||10|0", "直接购入|1502|累计折旧|0|10"));
  EXPECT_TRUE(saveVoucher(request));
  EXPECT_THAT(ledger("ccode"), ElementsAre("1501", "1502"));
}

TEST_F(VoucherFillTest, RefusesLinesInTheirOrderAndASecondSave) {
  open(cardVoucher("00001", "10"));
  voucher.Row(1).Digest = "";
  voucher.Row(2).SubjectCode = "";
  dialogs.expectOk("摘要不能为空!", Icon::Critical, kTitle);
  EXPECT_FALSE(window->Save());
  voucher.Row(1).SubjectCode = "";
  dialogs.expectOk("凭证中存在尚未确定的科目!", Icon::Critical, kTitle);
  EXPECT_FALSE(window->Save());
  window->LoadVouch();
  EXPECT_TRUE(window->Save());
  EXPECT_EQ(voucher.VoucherState, voucher_state::Saved);
  dialogs.expectOk("凭证已保存!", Icon::Information, kTitle);
  EXPECT_FALSE(window->Save());
  EXPECT_THAT(ledger("ino_id"), ElementsAre("1", "1"));
}

TEST_F(VoucherFillTest, WhatIsChangedAfterASaveIsReplaced) {
  execute("insert into GL_accvouch (iperiod,ino_id,inid) values (4,1,1)");
  open(cardVoucher("00001", "10"));
  EXPECT_EQ(window->ino_id(), 0);
  EXPECT_TRUE(window->Save());
  EXPECT_EQ(window->ino_id(), 2);
  EXPECT_TRUE(window->EditRequest());
  voucher.Row(1).Digest = "购入";
  EXPECT_TRUE(window->Save());
  EXPECT_THAT(ledger("iperiod,ino_id,inid,cdigest"), ElementsAre("4|1|1|~", "5|2|1|购入", "5|2|2|直接购入"));
}

TEST_F(VoucherFillTest, WritesSignaturesAndAttachments) {
  open(cardVoucher("00001", "10"));
  voucher.VoucherSign = "转";
  voucher.SignSeq = 3;
  voucher.VoucherDate = day("2020-6-2");
  voucher.Attachments = 4;
  voucher.Checker = "王";
  voucher.Cashier = "李";
  voucher.Bookkeeper = "赵";
  EXPECT_TRUE(window->Save());
  expectLedger("signatures");
}

TEST_F(VoucherFillTest, AVoucherInTheLedgerIsReplacedUnderItsNumber) {
  const VoucherRequest request = cardVoucher("00001", "10");
  EXPECT_TRUE(saveVoucher(request));
  execute("update GL_accvouch set cbill='王会计',doutbilldate=#2020-5-3#,idoc=2,ccheck='李'");
  execute("insert into GL_accvouch (iperiod,ino_id,inid) values (4,1,1)");
  open(request);
  EXPECT_TRUE(window->bPZmodify());
  EXPECT_THAT(linesOf(voucher), ElementsAre("直接购入|1501|固定资产|10|0", "直接购入|1502|累计折旧|0|10"));
  EXPECT_EQ(voucher.BillMaker, "王会计");
  EXPECT_EQ(voucher.VoucherDate, day("2020-5-3"));
  EXPECT_EQ(voucher.Attachments, 2);
  dialogs.expectYesNo("是否需要修改他人填制的凭证", Answer::Yes, Icon::Question, "凭证");
  EXPECT_TRUE(window->EditRequest());
  EXPECT_TRUE(enterAmount(voucher.Row(1), VoucherSide::Debit, "11"));
  EXPECT_TRUE(window->Save());
  EXPECT_THAT(ledger("iperiod,ino_id,inid,md,cbill"),
              ElementsAre("4|1|1|~|~", "5|1|1|11|陈会计", "5|1|2|0|陈会计"));
}

TEST_F(VoucherFillTest, TakesTheEventNumberForTheLedgersNumber) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00007", "70")));
  const VoucherRequest depreciation = depreciationVoucher();
  EXPECT_TRUE(saveVoucher(depreciation));
  EXPECT_THAT(linesOf(loaded(depreciation)),
              ElementsAre("直接购入|1501|固定资产|70|0", "直接购入|1502|累计折旧|0|70"))
      << "depreciation's 01 is voucher 1";
}

TEST_F(VoucherFillTest, ReportsALedgerVoucherThatIsNotThere) {
  const VoucherRequest request = cardVoucher("00007", "70");
  EXPECT_TRUE(saveVoucher(request));
  dialogs.expectOk("A7 frmPZFill ShowPZ 错误描述:无当前记录。", Icon::Exclamation, kTitle);
  EXPECT_EQ(loaded(request).RowCount(), 0U);
}

TEST_F(VoucherFillTest, AnswersTheRequestToEdit) {
  for (const auto& one : casesIn("vouchers/locked.txt")) {
    open({});
    voucher.BillMaker = "王会计";
    const auto state = static_cast<std::int16_t>(std::stoi(one[0]));
    voucher.VoucherState = state;
    voucher.Checker = one[1];
    voucher.Cashier = one[2];
    dialogs.expectOk(one[3], Icon::Critical, "凭证");
    EXPECT_FALSE(window->EditRequest());
    EXPECT_EQ(voucher.VoucherState, state);
  }
}

TEST_F(VoucherFillTest, AsksBeforeAnothersVoucherIsEdited) {
  open({});
  voucher.BillMaker = "王会计";
  voucher.VoucherState = voucher_state::Saved;
  dialogs.expectYesNo("是否需要修改他人填制的凭证", Answer::No, Icon::Question, "凭证");
  EXPECT_FALSE(window->EditRequest());
  EXPECT_EQ(voucher.VoucherState, voucher_state::Saved);
  dialogs.expectYesNo("是否需要修改他人填制的凭证", Answer::Yes, Icon::Question, "凭证");
  EXPECT_TRUE(window->EditRequest());
  EXPECT_EQ(voucher.VoucherState, voucher_state::Normal);
  EXPECT_EQ(voucher.BillMaker, "陈会计");
  EXPECT_TRUE(window->EditRequest()) << "one's own voucher asks for nothing";
}

TEST_F(VoucherFillTest, LooksAnEnteredSubjectUp) {
  open({});
  voucher.AddRow({});
  window->SubjectEntered(1, "1502");
  EXPECT_EQ(voucher.Row(1).SubjectName, "累计折旧");
  dialogs.expectOk("科目不合法", Icon::Exclamation, "凭证");
  window->SubjectEntered(1, "77");
  EXPECT_EQ(voucher.Row(1).SubjectCode + voucher.Row(1).SubjectName, "77");
}

TEST_F(VoucherFillTest, WalksTheYearsUnbookedEntries) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  open({});
  window->walkUnbooked();
  window->walkUnbooked("csign='记'");
  EXPECT_EQ(errorOf([&] { window->walkUnbooked("cNoSuch=1"); }), 3061);
}

TEST(VoucherValueTest, MovesOnlyAmongSeveral) {
  using States = std::array<bool, 4>;
  EXPECT_EQ(VoucherFill::moveEnabled(0), (States{false, false, false, false}));
  EXPECT_EQ(VoucherFill::moveEnabled(1), (States{false, false, false, false}));
  EXPECT_EQ(VoucherFill::moveEnabled(2), (States{true, true, false, false}));
}

TEST(VoucherValueTest, TakesAmountsAsTyped) {
  for (const auto& one : casesIn("vouchers/amounts.txt")) {
    VoucherLine line;
    line.Debit = Currency::fromDouble(7);
    line.Credit = Currency::fromDouble(1);
    const std::string taken = enterAmount(line, VoucherSide::Debit, one[0]) ? "taken" : "refused";
    EXPECT_EQ(Lines({one[0], taken, line.Debit.toText(), line.Credit.toText()}), one);
  }
}

TEST(VoucherValueTest, FillsInTheAmountThatIsMissing) {
  Voucher voucher;
  for (const double debit : {10.25, 5.5, 99.0}) voucher.AddRow({{}, {}, {}, Currency::fromDouble(debit), {}});
  balanceWith(voucher, 3, VoucherSide::Credit);
  EXPECT_EQ(voucher.Row(3).Credit.toText(), "15.75");
  EXPECT_TRUE(totalsOf(voucher).balanced());
  balanceWith(voucher, 1, VoucherSide::Debit);
  EXPECT_EQ(voucher.Row(1).Debit.toText(), "10.25");
  EXPECT_EQ(errorOf([&] { voucher.Row(0); }), 9);
  EXPECT_EQ(errorOf([&] { voucher.Row(4); }), 9);
  EXPECT_EQ(voucherAmountText(Currency::fromDouble(1234.5)), "1,234.50");
  EXPECT_EQ(voucherAmountText({}), "");
}

}  // namespace
}  // namespace zelkor::test
