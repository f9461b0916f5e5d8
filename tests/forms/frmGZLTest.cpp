#include "depreciation/frmGZL.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

/// May 2020 with two cards by workload, one of them changed since, and one by another method.
class frmGZLTest : public FormTest {
 protected:
  frmGZLTest() {
    addVersion("1", "00001", "4", "9000");
    addVersion("2", "00002", "4", "100");
    addVersion("9", "00003", "4", "100");
    addVersion("10", "00003", "2", "100");
    execute("insert into fa_WorkLoad (sCardNum,dblWork4,dblWorkT4) values ('00001',40,340)");
  }
  void addVersion(const std::string& id, const std::string& card, const std::string& method,
                  const std::string& total) {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sAssetName,sDeprMethodID,dblCanWork,dblCanWorkAct,sWorkUnit) "
        "values "
        "('" +
        id + "','" + card + "','车床','" + method + "'," + total + "," + total + ",'小时')");
  }
  std::string stored(const std::string& card) {
    return row("select dblWork5,dblWorkT5,dblWorkT4 from fa_WorkLoad where sCardNum='" + card + "'");
  }
  /// Types over the cell that is being edited.
  static void enterWork(const QWidget& form, const QString& text, int end) {
    auto& grid = control<FlexGrid>(form, "grdGZL");
    sendKey(grid, Qt::Key_Return);
    auto* box = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(box, nullptr);
    ASSERT_FALSE(box->isHidden());
    box->selectAll();
    for (const QChar letter : text) sendKey(*box, letter.unicode(), Qt::NoModifier, letter);
    sendKey(*box, end);
  }
};

TEST_F(frmGZLTest, storesTheWorkOfTheMonth) {
  const frmGZL& form = host.show<frmGZL>();
  EXPECT_EQ(control<FlexGrid>(form, "grdGZL").grid().rows(), 3u) << "two cards by workload";
  EXPECT_EQ(textOf(form, "txtTotal") + "|" + textOf(form, "txtLJ") + "|" + textOf(form, "txtDW"),
            "9000.00|340.00|小时");
  EXPECT_EQ(textOf(form, "lblTotal") + textOf(form, "lblLJ") + textOf(form, "lblDW"),
            "工作总量累计工作量工作量单位");
  enterWork(form, "1,2.e5x", Qt::Key_Return);
  enterWork(form, "7", Qt::Key_Return);
  EXPECT_EQ(textOf(form, "txtLJ"), "7.00") << "the first work of this card";
  click(form, "cmdOK");
  EXPECT_EQ(stored("00001"), "12.5|352.5|340");
  EXPECT_EQ(stored("00002"), "7|7|0");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(frmGZLTest, escapeLeavesTheCellAndThenTheScreen) {
  frmGZL& form = host.show<frmGZL>();
  enterWork(form, "99", Qt::Key_Escape);
  EXPECT_EQ(control<FlexGrid>(form, "grdGZL").grid().text(1, 2), "0.00");
  EXPECT_TRUE(form.isVisible());
  enterWork(form, "5", Qt::Key_Return);
  sendKey(form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored("00001"), "0|0|340");
}

}  // namespace
}  // namespace zelkor::test
