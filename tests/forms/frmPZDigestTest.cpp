#include "support/Widgets.h"
#include "vouchers/frmPZDigest.h"

namespace zelkor::test {
namespace {

class frmPZDigestTest : public FormTest {
 protected:
  frmPZDigest& open() { return host.show<frmPZDigest>(); }
  std::string stored(const std::string& code) {
    return row("select ctext,ccode from gl_bdigest where cid='" + code + "'");
  }
  static FlexGrid& list(const QWidget& form) { return gridOf(form, "MSFlexGrid1"); }
  static std::string listed(const QWidget& form, std::size_t row) {
    return body(form, "MSFlexGrid1").at(row - 1);
  }
  /// Types into the cell that is open; what is refused is told.
  void fill(const QWidget& form, const QString& text, const char* refusal = nullptr) {
    if (refusal) tells(refusal, Icon::Information, "提示信息");
    enter(form, "TxtAdd", text);
  }
  void fillCell(const QWidget& form, std::size_t row, std::size_t column, const QString& text,
                const char* refusal = nullptr) {
    clickCell(list(form), row, column);
    fill(form, text, refusal);
  }
};

TEST_F(frmPZDigestTest, storesANewRowOnceItHasCodeAndText) {
  const frmPZDigest& form = open();
  press(form, "CmdArray4");
  fill(form, "", "摘要编码必须输入!");
  fill(form, "01", "摘要编码不能重复！");
  fill(form, "07");
  fill(form, "", "摘要内容必须输入！");
  EXPECT_EQ(stored("07"), "(none)");
  fill(form, "设备大修");
  EXPECT_EQ(stored("07"), "设备大修|~");
  fill(form, "1501");
  EXPECT_EQ(stored("07"), "设备大修|1501");
  EXPECT_FALSE(control<QLineEdit>(form, "TxtAdd").isVisible());
  EXPECT_EQ(listed(form, 7), "07|设备大修|1501");
}

TEST_F(frmPZDigestTest, givesUpAnEmptyNewRowAndReportsAHalfOne) {
  const frmPZDigest& form = open();
  for (int i = 0; i < 2; ++i) {
    press(form, "CmdArray4");
    EXPECT_EQ(list(form).grid().rows(), 8u);
  }
  fill(form, "08");
  for (int i = 0; i < 2; ++i) tells("摘要内容必须输入！", Icon::Information, "提示信息");
  clickCell(list(form), 2, 1);
  press(form, "CmdArray9");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored("08"), "(none)");
}

TEST_F(frmPZDigestTest, changesAStoredRowCellByCell) {
  const frmPZDigest& form = open();
  fillCell(form, 5, 1, "盘盈");
  EXPECT_EQ(stored("05"), "盘盈|~");
  fillCell(form, 5, 0, "50");
  EXPECT_EQ(stored("50"), "盘盈|~");
  fillCell(form, 5, 2, "9999", "相关科目输入错误！");
  fillCell(form, 5, 0, "01", "摘要编号不能重复！");
  fillCell(form, 5, 1, "", "摘要内容必须输入！");
  EXPECT_EQ(stored("50"), "盘盈|~");
  EXPECT_EQ(listed(form, 5), "50|盘盈|") << "refused texts do not stay";
  fillCell(form, 1, 2, "");
  EXPECT_EQ(stored("01"), "购入固定资产|1501") << "a subject that is taken away stays stored";
  clickCell(list(form), 6, 2);
  pickNext("TvCode", "1502 累计折旧", "cmdOK");
  click(form, "CmdCodeView");
  EXPECT_EQ(stored("06"), "固定资产盘亏|1502");
  EXPECT_EQ(listed(form, 6), "06|固定资产盘亏|1502");
}

TEST_F(frmPZDigestTest, deletesAfterAsking) {
  const frmPZDigest& form = open();
  const char* question = "是否真的删除此行常用摘要？";
  press(form, "CmdArray5");
  list(form).selectGridRow(3);
  asks(question, Answer::No, "信息提示");
  press(form, "CmdArray5");
  EXPECT_NE(stored("03"), "(none)");
  asks(question, Answer::Yes, "信息提示");
  press(form, "mnu_popDel");
  EXPECT_EQ(stored("03"), "(none)");
  EXPECT_EQ(listed(form, 3).substr(0, 3), "04|");
  press(form, "CmdArray4");
  type(form, "TxtAdd", "01");
  asks(question, Answer::Yes, "信息提示");
  press(form, "CmdArray5");
  EXPECT_EQ(list(form).grid().rows(), 6u);
  EXPECT_NE(stored("01"), "(none)") << "a new row goes from the grid alone";
}

TEST_F(frmPZDigestTest, givesTheDigestThatIsTakenOver) {
  inModalForm([](QWidget& form) {
    press(form, "CmdArray7");
    EXPECT_TRUE(form.isVisible()) << "no row yet";
    clickCell(list(form), 2, 1);
    keepPicture(form, "frmPZDigest");
    press(form, "CmdArray7");
  });
  const auto digest = pickDigest(host);
  ASSERT_TRUE(digest);
  EXPECT_EQ(digest->text + "|" + digest->subject, "在建工程转入固定资产|1501");
  inModalForm([](QWidget& form) {
    for (const char* idle : {"CmdArray0", "CmdArray1", "CmdArray2", "CmdArray3", "CmdArray8"})
      press(form, idle);
    EXPECT_TRUE(form.isVisible());
    press(form, "CmdArray9");
  });
  EXPECT_FALSE(pickDigest(host));
}

}  // namespace
}  // namespace zelkor::test
