#include <QTest>

#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

/// May 2020 with two cards whose month has been run.
class DepreciationScreensTest : public FormTest {
 protected:
  DepreciationScreensTest() {
    addCard("00001", "301", "021", "5");
    addCard("00002", "2", "041", "5");
  }
  void addCard(const std::string& card, const std::string& depart, const std::string& type,
               const std::string& period) {
    execute("insert into fa_Cards (sCardID,sCardNum,sDeptNum,sTypeNum,dblValue,iInputPeriod) values ('" +
            card + "','" + card + "','" + depart + "','" + type + "',1000," + period + ")");
    execute("insert into fa_DeprTransactions (sCardNum,dblDepr5) values ('" + card + "',7.25)");
    execute("insert into fa_DeprVouchers (sDeptNum,sTypeNum,sSubjectNum,dblCredit) values ('" + depart +
            "','" + type + "','410502',7.25)");
  }
};

TEST_F(DepreciationScreensTest, allocationIsShownByDepartmentOrCategory) {
  const FrmZJFPB& form = host.show<FrmZJFPB>();
  EXPECT_EQ(control<QComboBox>(form, "ComboQJ").currentText(), "01 (2020.05-->2020.05)");
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 0), (Lines{"2", "301", "合计"}));
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 6), (Lines{"7.25", "7.25", "14.50"}));
  EXPECT_FALSE(isEnabled(form, "OptionLBFP")) << "locked until 修改 is pressed";
  press(form, "修改");
  click(form, "OptionLBFP");
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 0), (Lines{"021", "041", "合计"}));
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(DepreciationScreensTest, listFollowsPeriodAndTree) {
  addCard("00003", "301", "022", "4");
  frmZJQD& form = host.show<frmZJQD>();
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "00002", "00003", "合计"}));
  EXPECT_EQ(columnOf(form, "MSFZJQD", 5), (Lines{"7.25", "7.25", "7.25", "21.75"}));
  EXPECT_EQ(control<QComboBox>(form, "cmbDate").currentText(), "2020.5(登陆)");
  activate(form);
  auto& tree = control<QTreeWidget>(form, "trvDepart");
  control<QComboBox>(form, "cmbDepart").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(tree.hasFocus());
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "00002", "00003", "合计"})) << "nothing is chosen";
  QTest::keyClick(&tree, Qt::Key_Down);
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "00002", "合计"}));
  choose(form, "cmbDate", "2020.4");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00003", "合计"}));
  choose(form, "cmbDate", "2020.5(登陆)");
  choose(form, "cmbDepart", "按类别查询");
  selectNode(form, "trvDepart", "(02)机器设备");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "合计"}));
  press(form, "退出");
  EXPECT_EQ(endStatus(), -1);
}

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
  frmGZL& form = host.show<frmGZL>();
  keepPicture(form, "frmGZL");
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
