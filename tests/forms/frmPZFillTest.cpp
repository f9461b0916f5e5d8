#include "depreciation/FrmZJFPB.h"
#include "forms/VoucherForms.h"
#include "vouchers/frmPZFill.h"

namespace zelkor::test {
namespace {

enum Column : std::size_t { kDigest, kSubject, kDebit, kCredit };

class frmPZFillTest : public VoucherFormTest {
 protected:
  frmPZFill& open(const VoucherRequest& request) { return host.show<frmPZFill>(request); }
  frmPZFill& openCard() { return open(cardVoucher("00001", "10")); }
  static LocalPZ& editorOf(const QWidget& form) { return control<LocalPZ>(form, "LocalPZ"); }
  static FlexGrid& linesOn(const QWidget& form) { return gridOf(form, "Lines"); }
  static Lines written(const QWidget& form) { return linesOf(editorOf(form)); }
  static std::string balance(const QWidget& form) {
    return textsOf(form, {"LblDebit", "LblCredit", "LblBalance"});
  }
  /// Opens a cell by Enter.
  static QLineEdit& openCell(const QWidget& form, std::size_t row, std::size_t column) {
    linesOn(form).selectCell(row, column);
    sendKey(linesOn(form), Qt::Key_Return);
    return control<QLineEdit>(form, "TxtLine");
  }
  static void write(const QWidget& form, std::size_t row, std::size_t column, const QString& text,
                    int key = Qt::Key_Return) {
    openCell(form, row, column);
    enter(form, "TxtLine", text, key);
  }
  static bool isOpen(const QWidget& form) { return editing(form, "TxtLine"); }
};

TEST_F(frmPZFillTest, showsTheVoucherOfTheKey) {
  frmPZFill& form = open(depreciationVoucher());
  keepPicture(form, "frmPZFill");
  EXPECT_EQ(textsOf(form, {"Caption", "VoucherSign", "BillMaker", "VoucherDate", "Attachments", "Checker"}),
            "记账凭证|记|陈会计|2020-05-15|0|");
  EXPECT_EQ(enabledOf(form, {"cmdTool6", "cmdTool7", "cmdTool8", "cmdTool9", "subMenuViewFirst",
                             "subMenuViewPre", "subMenuViewNext", "subMenuViewLast"}),
            "");
  const auto lines = body(form, "Lines");
  EXPECT_EQ(lines[0], "计提第[5]期间折旧|550202 折旧费|20.50|");
  EXPECT_EQ(lines[3], "计提第[5]期间折旧|1502 累计折旧||170.75");
  EXPECT_EQ(lines[4], "|||");
  EXPECT_EQ(balance(form), "170.75|170.75|借贷平衡");
}

TEST_F(frmPZFillTest, savesAndTellsASecondSave) {
  frmPZFill& form = openCard();
  press(form, "cmdTool4");
  keepPicture(form, "frmPZFill-saved");
  EXPECT_EQ(textOf(form, "VoucherState"), "已保存");
  EXPECT_EQ(control<QStatusBar>(form, "StatusBar1").currentMessage(), "业务：卡片(00001)　　凭证号：记--1");
  EXPECT_THAT(ledger("ino_id,inid,ccode,md,mc"), ElementsAre("1|1|1501|10|0", "1|2|1502|0|10"));
  tells("凭证已保存!", Icon::Information);
  press(form, "subMenuZDSave");
}

TEST_F(frmPZFillTest, anUnbalancedVoucherIsRedAndSavedAsTold) {
  frmPZFill& form = openCard();
  write(form, 2, kCredit, "1,009.5");
  keepPicture(form, "frmPZFill-unbalanced");
  EXPECT_EQ(balance(form), "10.00|1,009.50|借贷不平，贷方多 999.50");
  EXPECT_TRUE(isOpen(form)) << "a line to balance it is offered";
  press(form, "cmdTool4");
  EXPECT_THAT(ledger("md,mc"), ElementsAre("10|0", "0|1009.5")) << "the offered line does not count";
}

TEST_F(frmPZFillTest, tellsADifferenceBelowTheShownDecimals) {
  const frmPZFill& form = open(cardVoucher("00001", "10.004"));
  EXPECT_EQ(balance(form), "10.00|10.00|借贷平衡");
  sendKey(openCell(form, 1, kDebit), Qt::Key_Return);
  EXPECT_EQ(written(form)[0], "直接购入|1501|固定资产|10.004|0") << "nothing was typed";
  write(form, 1, kDebit, "10");
  EXPECT_EQ(balance(form), "10.00|10.00|借贷不平，贷方多 0.004");
}

TEST_F(frmPZFillTest, isWrittenByKeysAlone) {
  const frmPZFill& form = openCard();
  FlexGrid& grid = linesOn(form);
  write(form, 1, kDigest, "购入车床");
  EXPECT_EQ(textOf(form, "TxtLine"), "1501") << "Enter leads on";
  enter(form, "TxtLine", "1601", Qt::Key_Tab);
  enter(form, "TxtLine", "8");
  EXPECT_EQ(textOf(form, "TxtLine"), "直接购入") << "behind the debit comes the next line";
  sendKey(control<QLineEdit>(form, "TxtLine"), Qt::Key_Escape);
  write(form, 2, kCredit, "8");
  EXPECT_FALSE(isOpen(form)) << "nothing is left to write";
  EXPECT_THAT(written(form), ElementsAre("购入车床|1601|工程物资|8|0", "直接购入|1502|累计折旧|0|8"));
  sendKey(grid, Qt::Key_9, Qt::NoModifier, "9");
  EXPECT_EQ(textOf(form, "TxtLine"), "9") << "a digit opens the cell and stands there";
  sendKey(control<QLineEdit>(form, "TxtLine"), Qt::Key_Backtab);
  EXPECT_EQ(linesOn(form).currentGridColumn(), std::size_t{kDebit});
  EXPECT_EQ(written(form)[1], "直接购入|1502|累计折旧|0|9");
}

TEST_F(frmPZFillTest, addsLinesUntilTheVoucherBalances) {
  const frmPZFill& form = openCard();
  FlexGrid& grid = linesOn(form);
  write(form, 1, kDebit, "8");
  sendKey(control<QLineEdit>(form, "TxtLine"), Qt::Key_Escape);
  openCell(form, 2, kCredit);
  auto& box = control<QLineEdit>(form, "TxtLine");
  sendKey(box, Qt::Key_Return);
  EXPECT_EQ(textOf(form, "TxtLine"), "直接购入") << "the digest above is offered";
  sendKey(box, Qt::Key_Return);
  enter(form, "TxtLine", "1601");
  sendKey(box, Qt::Key_Equal, Qt::NoModifier, "=");
  EXPECT_THAT(written(form), ElementsAre("直接购入|1501|固定资产|8|0", "直接购入|1502|累计折旧|0|10",
                                         "直接购入|1601|工程物资|2|0"));
  EXPECT_EQ(balance(form), "10.00|10.00|借贷平衡");
  sendKey(grid, Qt::Key_Space, Qt::NoModifier, " ");
  EXPECT_EQ(written(form)[2], "直接购入|1601|工程物资|0|2");
  sendKey(grid, Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(written(form).size(), 2U);
  grid.selectCell(2, kDigest);
  sendKey(grid, Qt::Key_Insert);
  enter(form, "TxtLine", "运费", Qt::Key_Tab);
  EXPECT_THAT(written(form),
              ElementsAre("直接购入|1501|固定资产|8|0", "运费|||0|0", "直接购入|1502|累计折旧|0|10"));
  tells("凭证中存在尚未确定的科目!", Icon::Critical);
  press(form, "cmdTool4");
  EXPECT_EQ(grid.currentGridRow().value() * 10 + grid.currentGridColumn().value(), 20 + kSubject)
      << "the line that lacks it comes up";
}

TEST_F(frmPZFillTest, tellsASubjectThatTheChartDoesNotHave) {
  const frmPZFill& form = openCard();
  tells("科目不合法", Icon::Exclamation, "凭证");
  write(form, 1, kSubject, "9999");
  EXPECT_EQ(written(form)[0], "直接购入|9999||10|0") << "told, not refused";
}

TEST_F(frmPZFillTest, looksUpDigestAndSubject) {
  const frmPZFill& form = openCard();
  editorOf(form).Row(1).SubjectCode.clear();
  inModalForm([](QWidget& picker) {
    gridOf(picker, "MSFlexGrid1").selectGridRow(3);
    press(picker, "CmdArray7");
  });
  linesOn(form).selectCell(1, kDigest);
  sendKey(linesOn(form), Qt::Key_F2);
  sendKey(control<QLineEdit>(form, "TxtLine"), Qt::Key_F2);
  EXPECT_EQ(written(form)[0], "计提固定资产折旧|1502|累计折旧|10|0")
      << "the digest's subject fills an empty one";

  pickSubject("1501 固定资产");
  openCell(form, 1, kSubject);
  click(form, "CmdLine");
  EXPECT_EQ(written(form)[0], "计提固定资产折旧|1501|固定资产|10|0");
}

TEST_F(frmPZFillTest, choosesAndClearsTheVoucherType) {
  execute("insert into dsign (csign,isignseq,ctext) values ('转',3,'转账凭证')");
  const frmPZFill& form = openCard();
  const auto type = [&form](std::optional<int> row) {
    inModalForm([row](QWidget& picker) {
      keepPicture(picker, "frmPZType");
      auto& list = control<QListWidget>(picker, "List1");
      if (row) list.setCurrentRow(*row);
      sendKey(list, Qt::Key_Return);
    });
    click(form, "CmdSign");
    return textsOf(form, {"VoucherSign", "Caption"});
  };
  EXPECT_EQ(type(1), "转|转账凭证");
  EXPECT_EQ(type({}), "记|记账凭证") << "the first one is offered";
  EXPECT_EQ(type(1), "转|转账凭证");
  sendKey(control<QLineEdit>(form, "VoucherSign"), Qt::Key_Delete);
  tells("凭证类别不合法");
  press(form, "cmdTool4");
  editorOf(form).VoucherSign = "转";
  press(form, "cmdTool4");
  EXPECT_EQ(row("select csign,isignseq from GL_accvouch"), "转|3");
}

TEST_F(frmPZFillTest, takesDateAndAttachments) {
  const frmPZFill& form = openCard();
  control<QDateEdit>(form, "VoucherDate").setDate(QDate(2020, 5, 31));
  control<QSpinBox>(form, "Attachments").setValue(3);
  press(form, "cmdTool4");
  EXPECT_EQ(row("select iperiod,doutbilldate,dbill_date,idoc from GL_accvouch"), "5|2020-5-31|2020-5-31|3");
}

TEST_F(frmPZFillTest, refusesEveryChangeOfALockedVoucher) {
  const frmPZFill& form = openCard();
  LocalPZ& voucher = editorOf(form);
  voucher.Checker = "王";
  voucher.showVoucher();
  const auto before = written(form);
  for (int i = 0; i < 6; ++i) tells("已复核的凭证不能修改，取消复核后方可修改", Icon::Critical, "凭证");
  openCell(form, 1, kDigest);
  EXPECT_FALSE(isOpen(form));
  sendKey(linesOn(form), Qt::Key_Insert);
  sendKey(linesOn(form), Qt::Key_Delete, Qt::ControlModifier);
  control<QDateEdit>(form, "VoucherDate").setDate(QDate(2020, 5, 1));
  control<QSpinBox>(form, "Attachments").setValue(9);
  click(form, "CmdSign");
  EXPECT_EQ(written(form), before);
  EXPECT_EQ(textsOf(form, {"VoucherDate", "Attachments"}), "2020-05-15|0");
}

TEST_F(frmPZFillTest, asksBeforeAnothersVoucherIsChanged) {
  const VoucherRequest request = cardVoucher("00001", "10");
  EXPECT_TRUE(saveVoucher(request));
  execute("update GL_accvouch set cbill='王会计'");
  const frmPZFill& form = open(request);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    EXPECT_EQ(textOf(form, "BillMaker"), "王会计");
    asks("是否需要修改他人填制的凭证", answer, "凭证");
    openCell(form, 1, kDebit);
    EXPECT_EQ(isOpen(form), answer == Answer::Yes);
  }
  EXPECT_EQ(textOf(form, "BillMaker"), "陈会计");
}

TEST_F(frmPZFillTest, opensFromTheAllocationTable) {
  depreciationVoucher();
  const auto& table = host.show<FrmZJFPB>();
  inModalForm([](QWidget& window) {
    press(window, "cmdTool4");
    press(window, "cmdTool11");
  });
  press(table, "凭证");
  EXPECT_EQ(row("select count(*),sum(md),min(coutsign) from GL_accvouch"), "4|170.75|折旧计提");
  EXPECT_TRUE(table.isVisible());
}

}  // namespace
}  // namespace zelkor::test
