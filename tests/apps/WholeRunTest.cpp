#ifdef ZELKOR_SCREENS  // the screens are built

#include <optional>
#include <string>

#include "apps/VirtualScreen.h"
#include "support/Paths.h"
#include "support/ProgramTest.h"

// The module in a real window, with a keyboard and a mouse.
namespace zelkor::test {
namespace {

constexpr const char* kCard = "固定资产卡片";

class WholeRunTest : public ProgramTest {
 protected:
  void SetUp() override { create(); }
  /// What a failed run showed last is worth a look.
  void TearDown() override {
    if (HasFailure()) keepPicture("whole-run-failed");
  }

  void start(const std::string& runType) {
    module_.emplace(zelkorProgram(), std::vector{arguments(runType, "set", "2020-01-15")}, home.path(),
                    ProgramOptions{.display = screen_.display()});
  }
  void keepPicture(const std::string& name) { screen_.keepPicture(pictureFolder() / (name + ".png")); }
  /// Types into the field that is open and goes on to the next.
  void enter(const std::string& text) {
    screen_.type(text);
    screen_.press("Return");
  }
  /// Answers an archive's picker: finds the entry by its code and takes it.
  void pick(const std::string& title, const std::string& code) {
    screen_.focus(title);
    screen_.click(title, 70, 348);   // 按编码查询
    screen_.click(title, 150, 384);  // the search field
    enter(code);
    screen_.click(title, 250, 434);  // 确认
    screen_.waitUntilClosed(title);
  }
  void pickCategory() { pick("固定资产类别参照", "021"); }
  /// Fills in what a bookkeeper would, by the keyboard where that is quicker, else with the mouse.
  void fillInCard() {
    screen_.focus(kCard);
    enter("Lathe No. 7");
    screen_.click(kCard, 891, 224);  // … of 部门名称
    pick("部门参照", "301");
    screen_.click(kCard, 323, 252);  // … of 增加方式
    pick("增减方式参照", "101");
    screen_.focus(kCard);
    enter("Hall 2");      // 存放地点, to which the pick has led on
    screen_.press("F2");  // 使用状况
    pick("使用状态参照", "11");
    screen_.focus(kCard);
    screen_.click(kCard, 265, 308);  // 开始使用日期
    screen_.type("2018-03-05");
    screen_.click(kCard, 265, 336);  // 原值
    for (const char* figure : {"120000", "5", "6000", "22800"}) enter(figure);
  }

  const VirtualScreen screen_{home.path()};
  std::optional<ProgramRun> module_;
};

TEST_F(WholeRunTest, ACardIsEnteredByKeyboardAndMouse) {
  start("5");
  pickCategory();
  fillInCard();
  keepPicture("whole-run");
  screen_.press("ctrl+s");
  screen_.focus("固定资产");
  screen_.press("Return");
  screen_.waitUntilClosed("固定资产");
  screen_.click(kCard, 468, 25);  // 退出
  const ProgramResult run = module_->finish();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors, "");

  EXPECT_EQ(sql("select sCardNum,sAssetNum,sAssetName,sTypeNum,sDeptNum,sOrgAddID,sStatusID,sSite,sOperator "
                "from fa_Cards"),
            "sCardNum\tsAssetNum\tsAssetName\tsTypeNum\tsDeptNum\tsOrgAddID\tsStatusID\tsSite\tsOperator\n"
            "00001\t02100001\tLathe No. 7\t021\t301\t101\t11\tHall 2\t陈会计\n");
  EXPECT_EQ(sql("select iNewType,lLife,lUsedMonths,dStartdate,dblValue,dblBV,dblBVRate,dblTransInDeprTCard "
                "from fa_Cards"),
            "iNewType\tlLife\tlUsedMonths\tdStartdate\tdblValue\tdblBV\tdblBVRate\tdblTransInDeprTCard\n"
            "1\t120\t22\t2018-03-05 00:00:00\t120000\t6000\t0.05\t22800\n");
  EXPECT_EQ(sql("select sCardNum,dblInputValue,dblDeprT1 from fa_DeprTransactions"),
            "sCardNum\tdblInputValue\tdblDeprT1\n00001\t120000\t22800\n");
}

}  // namespace
}  // namespace zelkor::test

#endif
