#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

/// May 2020 with two cards whose month has been run.
class DepreciationScreensTest : public FormTest {
 protected:
  DepreciationScreensTest() {
    addCard("00001", "301", "021", "1000", "5");
    addCard("00002", "2", "041", "500.5", "5");
  }

  void addCard(const std::string& cardNum, const std::string& depart, const std::string& type,
               const std::string& value, const std::string& period) {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sAssetName,sDeptNum,sTypeNum,dblValue,iInputPeriod) values "
        "('" +
        cardNum + "','" + cardNum + "','车床','" + depart + "','" + type + "'," + value + "," + period + ")");
    execute("insert into fa_DeprTransactions (sCardNum,dblDepr5) values ('" + cardNum + "',7.25)");
    execute(
        "insert into fa_DeprVouchers "
        "(sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,sSubjectName,dblCredit) "
        "values ('" +
        depart + "','部门" + depart + "','" + type + "','类别" + type + "','410502','折旧费',7.25)");
  }
  static std::vector<std::string> columnOf(const QWidget& form, const char* name, std::size_t column) {
    const TextGrid& grid = control<FlexGrid>(form, name).grid();
    std::vector<std::string> cells;
    for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row)
      cells.push_back(grid.text(row, column));
    return cells;
  }
};

using Cells = std::vector<std::string>;

TEST_F(DepreciationScreensTest, allocationIsShownByDepartmentOrCategory) {
  const FrmZJFPB& form = host.show<FrmZJFPB>();
  EXPECT_EQ(control<QComboBox>(form, "ComboQJ").currentText(), "01 (2020.05-->2020.05)");
  EXPECT_EQ(control<QComboBox>(form, "ComboQJ").count(), 1);
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 0), (Cells{"2", "301", "合计"}));
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 6), (Cells{"7.25", "7.25", "14.50"}));
  EXPECT_FALSE(isEnabled(form, "OptionLBFP")) << "locked until 修改 is pressed";
  press(form, "修改");
  click(form, "OptionLBFP");
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 0), (Cells{"021", "041", "合计"}));
  press(form, "修改");
  EXPECT_FALSE(isEnabled(form, "OptionBMFP"));
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(DepreciationScreensTest, listFollowsPeriodAndTree) {
  addCard("00003", "301", "022", "80", "4");
  const frmZJQD& form = host.show<frmZJQD>();
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Cells{"00001", "00002", "00003", "合计"}));
  EXPECT_EQ(columnOf(form, "MSFZJQD", 5), (Cells{"7.25", "7.25", "7.25", "21.75"}));
  EXPECT_EQ(control<QComboBox>(form, "cmbDate").currentText(), "2020.5(登陆)");
  EXPECT_EQ(nodesOf(form, "trvDepart")[0], "固定资产部门编码目录");
  choose(form, "cmbDate", "2020.4");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Cells{"00003", "合计"}));
  choose(form, "cmbDate", "2020.5(登陆)");
  choose(form, "cmbDepart", "按类别查询");
  EXPECT_EQ(nodesOf(form, "trvDepart")[0], "固定资产分类编码表");
  selectNode(form, "trvDepart", "(02)机器设备");
  EXPECT_EQ(columnOf(form, "MSFZJQD", 0), (Cells{"00001", "合计"}));
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
