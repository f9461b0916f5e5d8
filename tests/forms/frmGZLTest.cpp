#include "depreciation/frmGZL.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

/// May 2020 with two cards by workload, one of them changed since, and one by another method.
class frmGZLTest : public FormTest {
 protected:
  frmGZLTest() {
    for (const char* version :
         {"'1','00001','4',9000", "'2','00002','4',100", "'9','00003','4',100", "'10','00003','2',100"}) {
      execute("insert into fa_Cards (sCardID,sCardNum,sDeprMethodID,dblCanWork,sWorkUnit) values (" +
              std::string(version) + ",'小时')");
    }
    execute("insert into fa_WorkLoad (sCardNum,dblWork4,dblWorkT4) values ('00001',40,340)");
  }
  Lines stored() { return rows("select dblWork5,dblWorkT5,dblWorkT4 from fa_WorkLoad order by sCardNum"); }
  /// Types over the cell that is being edited.
  static void enterWork(const QWidget& form, const QString& text, int end) {
    auto& grid = gridOf(form, "grdGZL");
    sendKey(grid, Qt::Key_Return);
    auto* box = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(box && !box->isHidden());
    box->selectAll();
    for (const QChar letter : text) sendKey(*box, letter.unicode(), Qt::NoModifier, letter);
    sendKey(*box, end);
  }
};

TEST_F(frmGZLTest, storesTheWorkOfTheMonth) {
  const frmGZL& form = host.show<frmGZL>();
  EXPECT_EQ(columnOf(form, "grdGZL", 0), (Lines{"00001", "00002"}));
  EXPECT_EQ(textsOf(form, {"txtTotal", "txtLJ", "txtDW"}), "9000.00|340.00|小时");
  enterWork(form, "1,2.e5x", Qt::Key_Return);
  enterWork(form, "7", Qt::Key_Return);
  EXPECT_EQ(textOf(form, "txtLJ"), "7.00") << "the first work of this card";
  click(form, "cmdOK");
  EXPECT_EQ(stored(), (Lines{"12.5|352.5|340", "7|7|0"}));
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(frmGZLTest, escapeLeavesTheCellAndThenTheScreen) {
  frmGZL& form = host.show<frmGZL>();
  enterWork(form, "99", Qt::Key_Escape);
  EXPECT_EQ(gridOf(form, "grdGZL").grid().text(1, 2), "0.00");
  EXPECT_TRUE(form.isVisible());
  enterWork(form, "5", Qt::Key_Return);
  sendKey(form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored(), Lines{"0|0|340"});
}

}  // namespace
}  // namespace zelkor::test
