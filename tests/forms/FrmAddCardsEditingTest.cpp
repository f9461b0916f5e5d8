#include "CardEditorFixture.h"
#include "ui/FlexGrid.h"

namespace zelkor::test {
namespace {

class FrmAddCardsEditingTest : public CardEditorTest {};

TEST_F(FrmAddCardsEditingTest, limitsTheKeysOfFigures) {
  FrmAddCards& form = openNew("021");
  pressValue(form, 15);
  EXPECT_FALSE(isEdited(form, 15)) << "locked";
  const struct {
    int field;
    const char* typed;
    const char* taken;
  } cases[] = {{17, "1a2,-3.5元", "123.5"}, {17, "1.2.3", "1.23"}, {18, "5%", "5"}, {4, "10-A'", "10-A'"}};
  for (const auto& c : cases) {
    edit(form, c.field, c.typed);
    EXPECT_EQ(textOf(form, "TxtEdit"), c.taken) << c.field;
    sendKey(editor(form), Qt::Key_Backspace);
    EXPECT_LT(textOf(form, "TxtEdit").size(), std::string(c.taken).size() + 1) << c.field;
    sendKey(editor(form), Qt::Key_Escape);
  }
}

TEST_F(FrmAddCardsEditingTest, staysOnAFigureThatIsRefusedWhereverOneGoes) {
  FrmAddCards& form = openNew("021");
  enter(form, 17, "1000");
  edit(form, 20, "1000.01");
  const std::function<void()> ways[] = {[&] { pressValue(form, 4); },
                                        [&] { gridOf(form, "GridTmp").setFocus(); },
                                        [&] { press(form, "保存"); }, [&] { click(form, "CmdAddCards8"); }};
  for (const auto& go : ways) {
    tells("累计折旧不能大于原值!");
    go();
    EXPECT_TRUE(isEdited(form, 20) && editor(form).hasFocus());
  }
  EXPECT_EQ(shown(form, {20, 23}), "0.00|-0.01") << "calculated, but not taken";
  type(form, "TxtEdit", "400");
  leave(form);
  EXPECT_EQ(shown(form, 23), "600.00");
}

TEST_F(FrmAddCardsEditingTest, takesBackWhatARefusedFigureHasChanged) {
  FrmAddCards& form = openNew("021");
  enter(form, 17, "1000");
  enter(form, 19, "40");
  ASSERT_EQ(shown(form, 18), "4.0%");
  const auto refuse = [&](const std::string& residual) {
    tells("净残值不能大于原值!");
    type(form, "TxtEdit", "2000");
    leave(form);
    EXPECT_EQ(shown(form, {18, 19}), "200.0%|" + residual);
  };
  pressValue(form, 19);
  refuse("40");
  sendKey(editor(form), Qt::Key_Escape);
  EXPECT_EQ(shown(form, {18, 19}), "4.0%|40");
  enter(form, 18, "4");
  ASSERT_TRUE(isEdited(form, 19)) << "reached by the keyboard";
  refuse("40.00");
  type(form, "TxtEdit", "40.00");
  leave(form);
  EXPECT_EQ(shown(form, {18, 19}), "4%|40.00");
}

TEST_F(FrmAddCardsEditingTest, leadsThroughTheFieldsByEnterAndTab) {
  FrmAddCards& form = openNew("021");
  EXPECT_TRUE(isEdited(form, 4)) << "a new card begins with its name";
  typeKeys(form, "车床");
  sendKey(editor(form), Qt::Key_Tab);
  EXPECT_EQ(shown(form, 4), "车床");
  auto& paper = control<QWidget>(form, "PicCard");
  const auto pickByKey = [&](int key, const char* entry) {
    pickNext("TvAssentTypes", entry, "CmdOK");
    sendKey(paper, key);
  };
  sendKey(paper, Qt::Key_Return);  // from the category's code to its name
  sendKey(paper, Qt::Key_Return);
  EXPECT_TRUE(isEdited(form, 7));
  typeKeys(form, "C6140");
  leave(form);
  pickByKey(Qt::Key_F2, "一车间");
  sendKey(paper, Qt::Key_Return);
  pickByKey(Qt::Key_Down, "直接购入");
  sendKey(paper, Qt::Key_Tab);
  EXPECT_TRUE(isEdited(form, 10));
  leave(form);
  pickByKey(Qt::Key_F2, "在用");
  sendKey(paper, Qt::Key_Return);
  EXPECT_TRUE(isEdited(form, 12));
  leave(form);
  sendKey(paper, Qt::Key_Return);  // the method
  EXPECT_TRUE(isEdited(form, 14));
  typeKeys(form, "2020-4-3");
  leave(form);
  EXPECT_TRUE(isEdited(form, 17)) << "the currency is not picked";
  typeKeys(form, "500");
  sendKey(editor(form), Qt::Key_Return);
  EXPECT_TRUE(isEdited(form, 18));
  leave(form);
  EXPECT_EQ(shown(form, 18), "0.05") << "a field that is only passed stays as it is";
  sendKey(editor(form), Qt::Key_Backtab);
  EXPECT_TRUE(isEdited(form, 18));
  EXPECT_EQ(shown(form, {4, 7, 8, 9, 11, 14, 17}), "车床|C6140|一车间|直接购入|在用|2020-4-3|500");
}

TEST_F(FrmAddCardsEditingTest, goesOnFromTheLastFieldToTheListsAndBack) {
  FrmAddCards& form = openNew("021");
  pressValue(form, 24);
  sendKey(control<QWidget>(form, "PicCard"), Qt::Key_Return);
  auto& tabs = control<QTabBar>(form, "SSTab1");
  EXPECT_TRUE(tabs.hasFocus());
  sendKey(tabs, Qt::Key_Tab);
  EXPECT_TRUE(isEdited(form, 3));
  sendKey(editor(form), Qt::Key_Backtab);
  EXPECT_FALSE(editor(form).isVisible()) << "back round to the subject, which is picked";
  inModalForm([](QWidget& picker) { click(picker, "cmdCancel"); });
  sendKey(control<QWidget>(form, "PicCard"), Qt::Key_F2);
  edit(form, 10, "东区");
  sendKey(editor(form), Qt::Key_Escape);
  EXPECT_EQ(shown(form, 10), "");
  EXPECT_TRUE(form.isVisible()) << "Esc leaves the value alone";
}

TEST_F(FrmAddCardsEditingTest, showsTheSameFrameForEveryRecord) {
  FrmAddCards& form = openNew("021");
  EXPECT_EQ(textOf(form, "LblTitle"), "附属设备");
  control<QTabBar>(form, "SSTab1").setCurrentIndex(5);
  EXPECT_EQ(textOf(form, "LblTitle"), "减少信息");
  EXPECT_EQ(textsOf(gridOf(form, "GridTmp").grid()).front().front(), "设备编号");
}

}  // namespace
}  // namespace zelkor::test
