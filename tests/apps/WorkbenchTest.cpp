#ifdef ZELKOR_SCREENS  // the screens are built

#include "apps/JobTest.h"
#include "apps/VirtualScreen.h"
#include "support/Paths.h"

// The workbench in a real window, with the module that it starts.
namespace zelkor::test {
namespace {

constexpr const char* kMonth = "固定资产工作台　Works　2020年1月　下一步：";

class WorkbenchTest : public JobTest {
 protected:
  void TearDown() override {
    if (HasFailure()) screen_.keepPicture(pictureFolder() / "workbench-failed.png");
  }
  ProgramRun started(const std::vector<std::string>& words) const {
    return ProgramRun(zelkorHomeProgram(), words, home.path(), ProgramOptions{.display = screen_.display()});
  }
  void waitFor(const std::string& step) const { screen_.focus(kMonth + step); }
  void enter(const std::string& text) const {
    screen_.type(text);
    screen_.press("Return");
  }

  void importRegister(const std::string& file) const {
    for (const char* key : {"alt+c", "Up", "Return"}) screen_.press(key);  // the last entry of the menu
    screen_.focus("导入卡片");
    enter(file);
    screen_.focus("导入卡片　可以导入");
    screen_.press("alt+i");
    screen_.answer("导入卡片　导入完成", "Escape");
  }
  /// By the button of the next step, as all that follows.
  void runTheMonth() const {
    screen_.press("Return");
    screen_.answer("Zelkor", "Return");      // the work of the month has been entered
    screen_.answer("固定资产", "Return");    // it takes its time
    screen_.answer("固定资产", "alt+n");     // the list is not to be seen
    screen_.answer("折旧分配表", "ctrl+w");  // ends the program
  }
  void makeTheVoucher() const {
    screen_.press("Return");
    screen_.focus("批量制单");
    for (const char* key : {"Return", "ctrl+Tab", "Down"})
      screen_.press(key);  // to the line without a subject
    enter("1502");
    screen_.press("ctrl+m");
    screen_.focus("填制凭证");
    screen_.press("ctrl+s");
    screen_.answer("填制凭证", "ctrl+w");
    screen_.answer("批量制单", "ctrl+w");
  }
  void closeTheMonth() const {
    screen_.press("Return");
    screen_.answer("固定资产工作台", "alt+n");  // there is a backup
    screen_.focus("月末结账...");
    screen_.press("shift+Tab");
    screen_.answer("月末结账...", "space");
    screen_.answer("与账务对账结果", "Return");
    screen_.answer("固定资产", "Return");  // closed
    screen_.answer("Zelkor", "Return");    // from which day on things can be changed
  }

  const VirtualScreen screen_{home.path()};
};

TEST_F(WorkbenchTest, WhatCannotBeOpenedIsTold) {
  const auto ended = [this](const Words& words) {
    return ProgramRun(zelkorHomeProgram(), words, home.path()).finish();
  };
  EXPECT_EQ(ended({"--nonsense"}).status, 2);
  EXPECT_EQ(ended({"--date", "1.5.2020"}).status, 2);
  EXPECT_EQ(ended({"--user"}).status, 2);
  EXPECT_EQ(ended({"/one", "/another"}).status, 2);
  EXPECT_NE(ended({"--help-bash"}).output.find("@(--user|--date)"), std::string::npos);
  EXPECT_EQ(ended({"--version"}).status, 0);
  const ProgramResult missing = ended({home / "nowhere"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.errors.find("找不到文件"), std::string::npos) << missing.errors;
}

TEST_F(WorkbenchTest, ANewSetGoesThroughItsFirstMonth) {
  ProgramRun workbench = started({});
  screen_.focus("固定资产工作台　账套");
  screen_.press("alt+n");
  screen_.focus("新建账套");
  for (const char* field : {"Works", "Ltd", "Li"}) enter(field);
  enter("");  // the number that is offered
  for (const char* field : {"2020", "1"}) enter(field);
  screen_.press("space");  // sample archives
  screen_.press("Tab");
  enter(home / "set");
  for (const char* key : {"Return", "Return"}) screen_.press(key);  // over the server's field
  screen_.waitUntilClosed("新建账套");
  screen_.focus("固定资产工作台　账套");
  screen_.press("alt+o");
  screen_.focus("操作员与操作日期");
  for (const char* key : {"Return", "Return"}) screen_.press(key);
  waitFor("卡片");

  importRegister(registerOf({"12000", "24000"}));
  waitFor("计提折旧");
  runTheMonth();
  waitFor("制单");
  screen_.keepPicture(pictureFolder() / "workbench.png");
  makeTheVoucher();
  waitFor("检查");
  screen_.press("Return");
  waitFor("备份");
  screen_.press("Return");
  waitFor("对账与月末结账");
  closeTheMonth();
  screen_.focus("固定资产工作台　Works　2020年1月");
  screen_.press("Return");
  screen_.focus("固定资产工作台　Works　2020年2月　下一步：计提折旧");
  screen_.press("ctrl+w");
  const ProgramResult end = workbench.finish();
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(end.errors, "");
}

}  // namespace
}  // namespace zelkor::test

#endif
