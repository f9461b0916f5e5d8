#include "support/Widgets.h"
#include "vouchers/frmPZDigest.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "提示信息";

class frmPZDigestTest : public FormTest {
 protected:
  frmPZDigest& open() { return host.show<frmPZDigest>(); }
  std::string stored(const std::string& code) {
    return row("select ctext,ccode from gl_bdigest where cid='" + code + "'");
  }
  void refuses(const char* message) { dialogs.expectOk(message, Icon::Information, kTitle); }
  static FlexGrid& gridOf(const QWidget& form) { return control<FlexGrid>(form, "MSFlexGrid1"); }
  static std::string cell(const QWidget& form, std::size_t row, std::size_t column) {
    return gridOf(form).grid().text(row, column);
  }
  /// Clicks a cell, so that the editor opens over it.
  static void clickCell(const QWidget& form, std::size_t row, std::size_t column) {
    FlexGrid& grid = gridOf(form);
    grid.selectCell(row, column);
    emit grid.clicked(grid.cellIndex(row, column));
  }
  static bool editing(const QWidget& form) { return control<QLineEdit>(form, "TxtAdd").isVisible(); }
  static void enter(const QWidget& form, const QString& text) {
    type(form, "TxtAdd", text);
    sendKey(control<QLineEdit>(form, "TxtAdd"), Qt::Key_Return);
  }
};

TEST_F(frmPZDigestTest, storesANewRowOnceItHasCodeAndText) {
  const frmPZDigest& form = open();
  press(form, "CmdArray4");
  EXPECT_TRUE(editing(form));
  refuses("摘要编码必须输入!");
  enter(form, "");
  refuses("摘要编码不能重复！");
  enter(form, "01");
  enter(form, "07");
  refuses("摘要内容必须输入！");
  enter(form, "");
  EXPECT_EQ(stored("07"), "(none)");
  enter(form, "设备大修");
  EXPECT_EQ(stored("07"), "设备大修|~");
  enter(form, "1501");
  EXPECT_EQ(stored("07"), "设备大修|1501");
  EXPECT_FALSE(editing(form));
  EXPECT_EQ(cell(form, 7, 2), "1501");
}

TEST_F(frmPZDigestTest, givesUpAnEmptyNewRowAndReportsAHalfOne) {
  const frmPZDigest& form = open();
  for (int i = 0; i < 2; ++i) {
    press(form, "CmdArray4");
    EXPECT_EQ(gridOf(form).grid().rows(), 8u);
  }
  enter(form, "08");
  refuses("摘要内容必须输入！");
  clickCell(form, 2, 1);
  refuses("摘要内容必须输入！");
  press(form, "CmdArray9");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored("08"), "(none)");
}

TEST_F(frmPZDigestTest, changesAStoredRowCellByCell) {
  const frmPZDigest& form = open();
  clickCell(form, 5, 1);
  EXPECT_EQ(textOf(form, "TxtAdd"), "固定资产盘盈");
  enter(form, "盘盈");
  EXPECT_EQ(stored("05"), "盘盈|~");
  clickCell(form, 5, 0);
  enter(form, "50");
  EXPECT_EQ(stored("50"), "盘盈|~");
  clickCell(form, 5, 2);
  refuses("相关科目输入错误！");
  enter(form, "9999");
  clickCell(form, 5, 0);
  refuses("摘要编号不能重复！");
  enter(form, "01");
  clickCell(form, 5, 1);
  refuses("摘要内容必须输入！");
  enter(form, "");
  EXPECT_EQ(stored("50"), "盘盈|~");
  EXPECT_EQ(cell(form, 5, 0) + cell(form, 5, 1) + cell(form, 5, 2), "50盘盈") << "refused texts do not stay";
  clickCell(form, 1, 2);
  enter(form, "");
  EXPECT_EQ(cell(form, 1, 2), "");
  EXPECT_EQ(stored("01"), "购入固定资产|1501") << "a subject that is taken away stays stored";
}

TEST_F(frmPZDigestTest, takesTheSubjectFromThePicker) {
  const frmPZDigest& form = open();
  clickCell(form, 6, 1);
  EXPECT_FALSE(control<QPushButton>(form, "CmdCodeView").isVisible());
  clickCell(form, 6, 2);
  EXPECT_TRUE(control<QPushButton>(form, "CmdCodeView").isVisible());
  inModalForm([](QWidget& picker) {
    selectNode(picker, "TvCode", "1502 累计折旧");
    click(picker, "cmdOK");
  });
  click(form, "CmdCodeView");
  EXPECT_EQ(stored("06"), "固定资产盘亏|1502");
  EXPECT_EQ(cell(form, 6, 2), "1502");
}

TEST_F(frmPZDigestTest, deletesAfterAsking) {
  const frmPZDigest& form = open();
  press(form, "CmdArray5");
  const char* question = "是否真的删除此行常用摘要？";
  gridOf(form).selectGridRow(3);
  dialogs.expectYesNo(question, Answer::No, Icon::Question, "信息提示");
  press(form, "CmdArray5");
  EXPECT_NE(stored("03"), "(none)");
  dialogs.expectYesNo(question, Answer::Yes, Icon::Question, "信息提示");
  form.findChild<QAction*>("mnu_popDel")->trigger();
  EXPECT_EQ(stored("03"), "(none)");
  EXPECT_EQ(cell(form, 3, 0), "04");
}

TEST_F(frmPZDigestTest, deletesANewRowFromTheGridAlone) {
  const frmPZDigest& form = open();
  press(form, "CmdArray4");
  type(form, "TxtAdd", "01");
  dialogs.expectYesNo("是否真的删除此行常用摘要？", Answer::Yes, Icon::Question, "信息提示");
  press(form, "CmdArray5");
  EXPECT_EQ(gridOf(form).grid().rows(), 7u);
  EXPECT_NE(stored("01"), "(none)");
}

TEST_F(frmPZDigestTest, givesTheDigestThatIsTakenOver) {
  inModalForm([](QWidget& form) {
    press(form, "CmdArray7");
    EXPECT_TRUE(form.isVisible()) << "no row yet";
    clickCell(form, 2, 1);
    press(form, "CmdArray7");
  });
  const auto digest = pickDigest(host);
  ASSERT_TRUE(digest);
  EXPECT_EQ(digest->text + "|" + digest->subject, "在建工程转入固定资产|1501");
  for (const char* idle : {"CmdArray0", "CmdArray1", "CmdArray2", "CmdArray3", "CmdArray8"}) {
    inModalForm([idle](QWidget& form) {
      press(form, idle);
      EXPECT_TRUE(form.isVisible());
      press(form, "CmdArray9");
    });
    EXPECT_FALSE(pickDigest(host));
  }
}

TEST_F(frmPZDigestTest, endsTheProcessWithTheReportOnAQuote) {
  const frmPZDigest& form = open();
  clickCell(form, 1, 0);
  dialogs.expect({"实时错误 '3075':\n语法错误 (操作符丢失) 在查询表达式 'cid='0'1'' 中。", Buttons::Ok,
                  Icon::Critical, ""},
                 Answer::Ok);
  enter(form, "0'1");
  EXPECT_EQ(endStatus(), 1);
}

}  // namespace
}  // namespace zelkor::test
