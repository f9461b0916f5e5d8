#include <algorithm>

#include "cards/FrmManageCards.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

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

  static FlexGrid& list(const QWidget& form) { return gridOf(form, "mshFA"); }
  /// Card numbers of the list, the sum last.
  static Lines listed(const QWidget& form) {
    Lines cards = columnOf(form, "mshFA", 1);
    if (!cards.empty()) cards.back() += columnOf(form, "mshFA", 4).back();
    return cards;
  }
  /// Presses "删除" and answers what is asked.
  void remove(const QWidget& form, const std::string& card, Answer answer, const char* told = nullptr,
              Icon icon = Icon::Information) {
    dialogs.expect({"确实要删除[" + card + "]号卡片吗？", Buttons::YesNo, Icon::Question, "固定资产",
                    DefaultButton::Second},
                   answer);
    if (told) tells(told, icon);
    press(form, "删除");
  }
  static std::string title(const QWidget& form) { return form.windowTitle().toStdString(); }
  /// Lets the list be read to its end.
  static void waitForTitle(const QWidget& form, const char* expected) {
    for (int turn = 0; turn < 1000 && title(form) != expected; ++turn) settle();
    EXPECT_EQ(title(form), expected);
  }
  /// Card numbers and asset names that the open editors show.
  static Lines cardsInEditors() {
    Lines cards;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() != "FrmAddCards") continue;
      cards.push_back(textOf(*window, "LblValue1") + " " + textOf(*window, "LblValue4"));
    }
    std::ranges::sort(cards);
    return cards;
  }
};

TEST_F(FrmManageCardsTest, followsTreeAndFilter) {
  const FrmManageCards& form = open();
  EXPECT_EQ(title(form), "卡片管理 卡片[全部卡片  ](共计卡片3张)");
  EXPECT_EQ(listed(form), (Lines{"00001", "00002", "00003", "合计：300.00"}));
  EXPECT_EQ(list(form).currentGridRow(), 1u);
  selectNode(form, "tvwType", "1 总经理办公室(0)");
  choose(form, "cmbFA", "在役资产");
  EXPECT_EQ(listed(form), (Lines{"合计：.00"}));
  EXPECT_EQ(title(form), "卡片管理 卡片[总经理办公室  在役资产](共计卡片0张)");
  EXPECT_FALSE(command(form, "删除").isEnabled()) << "the sum is no card";
  EXPECT_FALSE(command(form, "修改").isEnabled());
  selectNode(form, "tvwType", "3 生产部(3)");
  EXPECT_EQ(listed(form), (Lines{"00001", "00002", "合计：200.00"}));
  choose(form, "cmbType", "按类别查询");
  choose(form, "cmbFA", "全部卡片");
  selectNode(form, "tvwType", "01 房屋及建筑物(2)");
  EXPECT_EQ(listed(form), (Lines{"00002", "合计：100.00"}));
  choose(form, "cmbType", "自定义查询");
  EXPECT_EQ(nodesOf(form, "tvwType"), Lines{"自定义查询"});
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
}

TEST_F(FrmManageCardsTest, refreshesAndDeletesTheSelectedCard) {
  const FrmManageCards& form = open();
  execute("update fa_Cards set dblValue=50 where sCardID='1'");
  list(form).selectGridRow(2);
  press(form, "刷新");
  EXPECT_EQ(listed(form).back(), "合计：250.00");
  EXPECT_EQ(list(form).currentGridRow(), 2u);
  list(form).selectGridRow(3);
  remove(form, "00003", Answer::No);
  EXPECT_EQ(listed(form).size(), 4u);
  remove(form, "00003", Answer::Yes, "卡片号为[00003]已成功删除！");
  EXPECT_EQ(listed(form), (Lines{"00001", "00002", "合计：150.00"}));
  EXPECT_EQ(list(form).currentGridRow(), 2u) << "the last card stands where the deleted one stood";
  execute("drop table fa_ZWVouchers");
  remove(form, "00002", Answer::Yes, "卡片号为[00002]删除失败！", Icon::Exclamation);
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
  EXPECT_EQ(cardsInEditors(), (Lines{"00001 第1版", "00002 第10版"}));
}

TEST_F(FrmManageCardsTest, readsALongListWhileTheWindowLives) {
  execute("delete from fa_Cards");
  addCards(1, 4300);
  FrmManageCards& form = open();
  EXPECT_EQ(list(form).grid().rows(), 201u) << "the first cards are there at once";
  EXPECT_EQ(title(form), "卡片管理");
  list(form).selectGridRow(200);
  waitForTitle(form, "卡片管理 卡片[全部卡片  ](共计卡片4300张)");
  EXPECT_EQ(listed(form).back(), "合计：430,000.00");
  EXPECT_EQ(list(form).currentGridRow(), 200u);
}

TEST_F(FrmManageCardsTest, readsTheLatestChoiceOnly) {
  addCards(100, 800);
  FrmManageCards& form = open();
  choose(form, "cmbFA", "在役资产");
  remove(form, "00001", Answer::Yes, "卡片号为[00001]已成功删除！");
  waitForTitle(form, "卡片管理 卡片[在役资产  ](共计卡片702张)");
  EXPECT_EQ(listed(form).size(), 703u);
  press(form, "刷新");
  form.close();
  settle();
  EXPECT_EQ(endStatus(), -1) << "nothing is read behind a closed window";
}

TEST_F(FrmManageCardsTest, keepsTheGridWhenTheCardsCannotBeRead) {
  const FrmManageCards& form = open();
  const Lines before = listed(form);
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
  press(form, "退出");
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
