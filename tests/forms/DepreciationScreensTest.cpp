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
  const frmZJQD& form = host.show<frmZJQD>();
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "00002", "00003", "合计"}));
  EXPECT_EQ(columnOf(form, "MSFZJQD", 5), (Lines{"7.25", "7.25", "7.25", "21.75"}));
  EXPECT_EQ(control<QComboBox>(form, "cmbDate").currentText(), "2020.5(登陆)");
  choose(form, "cmbDate", "2020.4");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00003", "合计"}));
  choose(form, "cmbDate", "2020.5(登陆)");
  choose(form, "cmbDepart", "按类别查询");
  selectNode(form, "trvDepart", "(02)机器设备");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Lines{"00001", "合计"}));
  press(form, "退出");
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
