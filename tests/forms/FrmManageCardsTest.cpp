#include <algorithm>

#include "cards/FrmManageCards.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using Rows = std::vector<std::string>;

/// Three cards: one in each of two workshops, one of two versions that is disposed of.
class FrmManageCardsTest : public FormTest {
 protected:
  FrmManageCardsTest() {
    addVersion("1", "00001", "301", "021");
    addVersion("2", "00002", "302", "011");
    addVersion("3", "00003", "1", "021");
    addVersion("4", "00003", "1", "021", "#2020-4-30#");
  }
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& depart,
                  const std::string& type, const std::string& disposed = "Null") {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sDeptNum,sTypeNum,lLife,dblValue,dDisposeDate) values ('" +
        cardID + "','" + cardNum + "','" + depart + "','" + type + "',60,100," + disposed + ")");
  }
  void addCards(int first, int last) {
    for (int i = first; i <= last; ++i)
      addVersion(std::to_string(i), std::to_string(10000 + i), "301", "021");
  }
  FrmManageCards& open() { return host.show<FrmManageCards>(context.gstrZtFile); }

  static FlexGrid& list(const QWidget& form) { return control<FlexGrid>(form, "mshFA"); }
  /// Card numbers of the list, the sum last.
  static Rows listed(const QWidget& form) {
    Rows cards;
    for (const auto& row : textsOf(list(form).grid())) cards.push_back(row[1]);
    cards.erase(cards.begin());
    if (!cards.empty()) cards.back() += textsOf(list(form).grid()).back()[4];
    return cards;
  }
  static std::string title(const QWidget& form) { return form.windowTitle().toStdString(); }
  /// Lets the list be read to its end.
  static void waitForTitle(const QWidget& form, const char* expected) {
    for (int turn = 0; turn < 1000 && title(form) != expected; ++turn) settle();
    EXPECT_EQ(title(form), expected);
  }
  /// Card numbers and asset names that the open editors show.
  static Rows cardsInEditors() {
    Rows cards;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() != "FrmAddCards") continue;
      cards.push_back(textOf(*window, "LblValue1") + " " + textOf(*window, "LblValue4"));
    }
    std::ranges::sort(cards);
    return cards;
  }
  std::string rowsLeft(const char* table, const char* column) {
    return row("select count(*) from " + std::string(table) + " where " + column + "='00003'");
  }
};

TEST_F(FrmManageCardsTest, opensWithAllCards) {
  const FrmManageCards& form = open();
  EXPECT_EQ(title(form), "卡片管理 卡片[全部卡片  ](共计卡片3张)");
  EXPECT_EQ(listed(form), (Rows{"00001", "00002", "00003", "合计：300.00"}));
  EXPECT_EQ(list(form).currentGridRow(), 1u);
  EXPECT_EQ(nodesOf(form, "tvwType"),
            (Rows{"固定资产部门编码目录(7)", "  1 总经理办公室(0)", "  2 财务部(0)", "  3 生产部(3)",
                  "  4 研发部(2)", "  5 销售部(2)", "  6 仓储物流部(0)", "  7 行政后勤部(0)"}));
}

TEST_F(FrmManageCardsTest, followsTreeAndFilter) {
  const FrmManageCards& form = open();
  selectNode(form, "tvwType", "1 总经理办公室(0)");
  EXPECT_EQ(listed(form), (Rows{"00003", "合计：100.00"}));
  choose(form, "cmbFA", "在役资产");
  EXPECT_EQ(listed(form), (Rows{"合计：.00"}));
  EXPECT_EQ(title(form), "卡片管理 卡片[总经理办公室  在役资产](共计卡片0张)");
  EXPECT_FALSE(command(form, "删除").isEnabled()) << "the sum is no card";
  EXPECT_FALSE(command(form, "修改").isEnabled());
  selectNode(form, "tvwType", "3 生产部(3)");
  EXPECT_EQ(listed(form), (Rows{"00001", "00002", "合计：200.00"}));
  choose(form, "cmbFA", "已减少资产");
  selectNode(form, "tvwType", "固定资产部门编码目录(7)");
  EXPECT_EQ(listed(form), (Rows{"00003", "合计：100.00"}));
  EXPECT_EQ(title(form), "卡片管理 卡片[已减少资产  ](共计卡片1张)");
  choose(form, "cmbType", "按类别查询");
  EXPECT_EQ(nodesOf(form, "tvwType").at(1), "  01 房屋及建筑物(2)");
  choose(form, "cmbFA", "全部卡片");
  selectNode(form, "tvwType", "01 房屋及建筑物(2)");
  EXPECT_EQ(listed(form), (Rows{"00002", "合计：100.00"}));
  choose(form, "cmbType", "自定义查询");
  EXPECT_EQ(nodesOf(form, "tvwType"), Rows{"自定义查询"});
  EXPECT_EQ(listed(form).size(), 4u);
}

TEST_F(FrmManageCardsTest, loadsChildrenWhenANodeOpens) {
  const FrmManageCards& form = open();
  selectNode(form, "tvwType", "3 生产部(3)");
  QTreeWidgetItem& node = *control<QTreeWidget>(form, "tvwType").currentItem();
  EXPECT_EQ(node.childCount(), 0);
  execute("update fa_departments set sName='新车间' where sNum='302'");
  node.setExpanded(true);
  EXPECT_EQ(node.childCount(), 3);
  EXPECT_EQ(node.child(1)->text(0), "302 新车间(0)");
  node.setExpanded(false);
  node.setExpanded(true);
  EXPECT_EQ(node.childCount(), 3);
  selectNode(form, "tvwType", "302 新车间(0)");
  EXPECT_EQ(listed(form), (Rows{"00002", "合计：100.00"}));
}

TEST_F(FrmManageCardsTest, deletesTheSelectedCardWithAllItsVersions) {
  execute("insert into fa_DeprTransactions (sCardNum) values ('00003')");
  execute("insert into fa_ZWVouchers (cDefine9) values ('00003')");
  execute("insert into fa_DeptScale (sCardNum) values ('00003')");
  execute("insert into fa_Cards_Detail (sCardNum) values ('00003')");
  const FrmManageCards& form = open();
  list(form).selectGridRow(3);
  const MessageBox question{"确实要删除[00003]号卡片吗？", Buttons::YesNo, Icon::Question, "固定资产",
                            DefaultButton::Second};
  dialogs.expect(question, Answer::No);
  press(form, "删除");
  EXPECT_EQ(listed(form).size(), 4u);
  dialogs.expect(question, Answer::Yes)
      .expectOk("卡片号为[00003]已成功删除！", Icon::Information, "固定资产");
  press(form, "删除");
  EXPECT_EQ(listed(form), (Rows{"00001", "00002", "合计：200.00"}));
  EXPECT_EQ(title(form), "卡片管理 卡片[全部卡片  ](共计卡片2张)");
  EXPECT_EQ(list(form).currentGridRow(), 2u) << "the last card stands where the deleted one stood";
  EXPECT_EQ(rowsLeft("fa_Cards", "sCardNum") + rowsLeft("fa_DeprTransactions", "sCardNum") +
                rowsLeft("fa_ZWVouchers", "cDefine9"),
            "000");
  EXPECT_EQ(rowsLeft("fa_DeptScale", "sCardNum") + rowsLeft("fa_Cards_Detail", "sCardNum"), "11");
}

TEST_F(FrmManageCardsTest, tellsWhenACardIsNotDeleted) {
  execute("update fa_Cards set sCardNum='0000&' where sCardID='1'");
  const FrmManageCards& form = open();
  const std::string card = "0000&";
  execute("drop table fa_ZWVouchers");
  dialogs
      .expect({"确实要删除[" + card + "]号卡片吗？", Buttons::YesNo, Icon::Question, "固定资产",
               DefaultButton::Second},
              Answer::Yes)
      .expectOk("卡片号为[" + card + "]删除失败！", Icon::Exclamation, "固定资产");
  press(form, "删除");
  EXPECT_EQ(listed(form).size(), 3u) << "what was deleted before the failure stays so";
}

TEST_F(FrmManageCardsTest, opensTheNewestVersionInTheEditor) {
  context.gOpArgs.setZkDataPath(context.gstrZtFile);
  addVersion("9", "00002", "302", "011");
  addVersion("10", "00002", "302", "011");
  execute("update fa_Cards set sAssetName='第'+sCardID+'版'");
  const FrmManageCards& form = open();
  list(form).selectGridRow(2);
  press(form, "修改");
  list(form).selectGridRow(1);
  sendKey(list(form), Qt::Key_Return);
  list(form).selectGridRow(4);
  sendKey(list(form), Qt::Key_Return);  // the sum is no card
  EXPECT_EQ(cardsInEditors(), (Rows{"00001 第1版", "00002 第10版"}));
  execute("update fa_Cards set dblValue=7");
  EXPECT_EQ(listed(form).back(), "合计：300.00") << "the list does not follow by itself";
}

TEST_F(FrmManageCardsTest, refreshesOnRequestOnly) {
  const FrmManageCards& form = open();
  addVersion("5", "00004", "301", "021");
  list(form).selectGridRow(2);
  EXPECT_EQ(listed(form).size(), 4u);
  press(form, "刷新");
  EXPECT_EQ(listed(form).size(), 5u);
  EXPECT_EQ(list(form).currentGridRow(), 2u);
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(FrmManageCardsTest, readsALongListWhileTheWindowLives) {
  execute("delete from fa_Cards");
  addCards(1, 4300);
  FrmManageCards& form = open();
  EXPECT_EQ(list(form).grid().rows(), 201u) << "the first cards are there at once";
  EXPECT_EQ(title(form), "卡片管理");
  list(form).selectGridRow(200);
  waitForTitle(form, "卡片管理 卡片[全部卡片  ](共计卡片4300张)");
  const Rows cards = listed(form);
  EXPECT_EQ(cards.size(), 4301u);
  EXPECT_EQ(cards.at(4299) + cards.at(4300), "14300合计：430,000.00");
  EXPECT_EQ(list(form).currentGridRow(), 200u);
  list(form).selectGridRow(4301);
  EXPECT_FALSE(command(form, "修改").isEnabled());
}

TEST_F(FrmManageCardsTest, readsTheLatestChoiceOnly) {
  addCards(100, 800);
  FrmManageCards& form = open();
  choose(form, "cmbFA", "在役资产");
  dialogs
      .expect(
          {"确实要删除[00001]号卡片吗？", Buttons::YesNo, Icon::Question, "固定资产", DefaultButton::Second},
          Answer::Yes)
      .expectOk("卡片号为[00001]已成功删除！", Icon::Information, "固定资产");
  press(form, "删除");
  waitForTitle(form, "卡片管理 卡片[在役资产  ](共计卡片702张)");
  EXPECT_EQ(listed(form).size(), 703u);
  addCards(1000, 1600);
  press(form, "刷新");
  form.close();
  settle();
  EXPECT_EQ(endStatus(), -1) << "nothing is read behind a closed window";
}

TEST_F(FrmManageCardsTest, keepsTheGridWhenTheCardsCannotBeRead) {
  const FrmManageCards& form = open();
  const Rows before = listed(form);
  // A version without a number breaks the order of the list: at once, or far behind the first cards.
  for (const char* card : {"00000", "99999"}) {
    addCards(100, 600);
    addVersion("x", card, "2", "021");
    press(form, "刷新");
    for (int turn = 0; turn < 20; ++turn) settle();
    EXPECT_EQ(listed(form), before) << card;
    EXPECT_EQ(title(form), "卡片管理 卡片[全部卡片  ](共计卡片3张)");
    execute("delete from fa_Cards where dblValue=100 and (sCardNum>'1' or sCardNum='00000')");
  }
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(FrmManageCardsTest, staysEmptyWithoutItsFile) {
  const FrmManageCards& form = host.show<FrmManageCards>(missingFile());
  EXPECT_EQ(list(form).grid().rows(), 1u);
  EXPECT_EQ(title(form), "卡片管理");
  EXPECT_FALSE(command(form, "删除").isEnabled());
  press(form, "刷新");
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
