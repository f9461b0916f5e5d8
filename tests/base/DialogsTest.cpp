#include <gtest/gtest-spi.h>

#include <sstream>

#include "base/TerminalDialogs.h"
#include "support/ScriptedDialogs.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using Options = TerminalDialogs::Options;

struct Terminal {
  explicit Terminal(Options options = {}, const std::string& input = "")
      : in(input), dialogs(in, out, std::move(options)) {}
  std::istringstream in;
  std::ostringstream out;
  TerminalDialogs dialogs;
};

TEST(TerminalDialogs, PrintsTheBoxAndTheAnswer) {
  Terminal terminal({std::vector{Answer::Yes}, false, "Zelkor"});
  EXPECT_EQ(terminal.dialogs.MsgBox("要继续吗?", Buttons::YesNo, Icon::Question, "固定资产"), Answer::Yes);
  EXPECT_EQ(terminal.dialogs.MsgBox("完成!"), Answer::Ok);
  EXPECT_EQ(terminal.out.str(),
            "== 固定资产 ==（询问）\n要继续吗?\n[是 y] [否 n] \n-> 是\n"
            "== Zelkor ==\n完成!\n[确定 o] \n-> 确定\n");
}

TEST(TerminalDialogs, BreaksLinesAtCarriageReturns) {
  Terminal terminal({std::nullopt, false, "Zelkor"});
  terminal.dialogs.MsgBox("一\r\r二\r\n三\r");
  EXPECT_EQ(terminal.out.str(), "== Zelkor ==\n一\n\n二\n三\n\n[确定 o] \n-> 确定\n");
}

TEST(TerminalDialogs, TakesGivenAnswersInOrder) {
  Terminal terminal({std::vector{Answer::Ok, Answer::No, Answer::Yes, Answer::No}, false, "Zelkor"});
  auto& dialogs = terminal.dialogs;
  EXPECT_EQ(dialogs.MsgBox("提示"), Answer::Ok);
  EXPECT_EQ(dialogs.MsgBox("提示"), Answer::Ok);
  EXPECT_EQ(dialogs.MsgBox("一?", Buttons::YesNoCancel), Answer::No);
  EXPECT_EQ(dialogs.MsgBox("二?", Buttons::OkCancel), Answer::Ok);
  EXPECT_EQ(dialogs.MsgBox("三?", Buttons::OkCancel), Answer::Cancel);
  EXPECT_EQ(test::errorOf([&] { dialogs.MsgBox("四?", Buttons::YesNo); }), 57);
  Terminal wrong({std::vector{Answer::Cancel}, true, "Zelkor"});
  EXPECT_EQ(test::errorOf([&] { wrong.dialogs.MsgBox("五?", Buttons::YesNo); }), 57);
}

TEST(TerminalDialogs, YesToAllFollowsTheList) {
  Terminal terminal({std::vector{Answer::No}, true, "Zelkor"});
  EXPECT_EQ(terminal.dialogs.MsgBox("一?", Buttons::YesNo), Answer::No);
  EXPECT_EQ(terminal.dialogs.MsgBox("二?", Buttons::YesNoCancel), Answer::Yes);
  EXPECT_EQ(terminal.dialogs.MsgBox("三?", Buttons::OkCancel), Answer::Ok);
}

TEST(TerminalDialogs, ReadsLinesUntilTheAnswerFits) {
  Terminal terminal({}, "maybe\r\n取消\nNO\r\n\n\n");
  auto& dialogs = terminal.dialogs;
  EXPECT_EQ(dialogs.MsgBox("一?", Buttons::YesNo), Answer::No);
  EXPECT_EQ(dialogs.MsgBox("二?", Buttons::YesNo), Answer::Yes);
  EXPECT_EQ(dialogs.MsgBox({"三?", Buttons::YesNo, Icon::None, "", DefaultButton::Second}), Answer::No);
  EXPECT_EQ(test::errorOf([&] { dialogs.MsgBox("四?", Buttons::YesNo); }), 57);
}

TEST(TerminalDialogs, PrintsGrids) {
  Terminal terminal;
  TextGrid grid;
  grid.setHeader("部门|金额");
  grid.addRow({"合计", "1.00"});
  int hooks = 0;
  terminal.dialogs.setBeforeShowing([&hooks] { ++hooks; });
  terminal.dialogs.showGrid("折旧分配表", grid);
  terminal.dialogs.MsgBox("完成");
  EXPECT_EQ(hooks, 2);
  EXPECT_TRUE(terminal.out.str().starts_with("== 折旧分配表 ==\n部门  金额\n----------\n合计  1.00\n"));
}

TEST(AnswerFromWord, KnowsLettersAndWords) {
  EXPECT_EQ(answerFromWord(" Y "), Answer::Yes);
  EXPECT_EQ(answerFromWord("否"), Answer::No);
  EXPECT_EQ(answerFromWord("OK"), Answer::Ok);
  EXPECT_EQ(answerFromWord("c"), Answer::Cancel);
  EXPECT_EQ(answerFromWord("yeah"), std::nullopt);
}

TEST(ScriptedDialogs, FailsOnWhatIsNotExpected) {
  EXPECT_NONFATAL_FAILURE(test::ScriptedDialogs().MsgBox("意外"), "unexpected box [] 意外");
  EXPECT_NONFATAL_FAILURE(test::ScriptedDialogs().expectOk("没有出现"), "box not shown: 没有出现");
  EXPECT_NONFATAL_FAILURE(test::ScriptedDialogs().expectOk("甲").MsgBox("乙"), "乙");
  EXPECT_NONFATAL_FAILURE(test::ScriptedDialogs().expectOk("甲", Icon::Critical).MsgBox("甲"), "icon of: 甲");
  EXPECT_NONFATAL_FAILURE(test::ScriptedDialogs().showGrid("表", TextGrid()), "unexpected grid: 表");
  test::ScriptedDialogs good;
  good.expectYesNo("继续?", Answer::No).expectGrid();
  EXPECT_EQ(good.MsgBox("继续?", Buttons::YesNo, Icon::Question), Answer::No);
  good.showGrid("表", TextGrid());
  EXPECT_EQ(good.grids().front().caption, "表");
}

}  // namespace
}  // namespace zelkor
