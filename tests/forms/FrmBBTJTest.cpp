#include <cstdlib>

#include "apps/zelkor/Screens.h"
#include "reports/ConditionPages.h"
#include "reports/FrmBBTJ.h"
#include "startup/RecentReports.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

std::string numbered(const char* name, std::size_t index) {
  return name + std::to_string(index);
}

/// The account set holds the archives alone. Operating date 2020-05-15.
class FrmBBTJTest : public FormTest {
 protected:
  FrmBBTJ& open(const std::string& report) { return host.show<FrmBBTJ>(*findReport(report), view); }

  ReportView view;
};

TEST_F(FrmBBTJTest, bringsThePageOfEachReportToTheFront) {
  for (const ReportKind& kind : reportKinds()) {
    SCOPED_TRACE(kind.name);
    FrmBBTJ& form = open(std::string(kind.name));
    keepPicture(form, "FrmBBTJ-" + std::to_string(numberOf(kind.page)));
    EXPECT_EQ(form.windowTitle().toStdString(), "条件 - [" + std::string(kind.name) + "]");
    for (std::size_t page = 0; page < kConditionPages.size(); ++page) {
      const auto& panel = control<QWidget>(form, numbered("Picture1", page).c_str());
      EXPECT_EQ(panel.isVisible(), page == numberOf(kind.page)) << page;
      for (const char* button : {"CmdYes", "CmdCancel"}) {
        EXPECT_TRUE(panel.findChild<QWidget*>(numbered(button, page).c_str())) << button;
      }
    }
    form.close();
  }
}

TEST_F(FrmBBTJTest, keepsTheViewLoadedOnlyWhereNothingIsComputed) {
  EXPECT_TRUE(view.periods.empty());
  click(open("盘盈盘亏报告表"), "CmdYes4");
  EXPECT_EQ(view.periods.size(), 12u) << "with what was written into it";
  inModalForm([](QWidget& shown) { shown.close(); });
  click(open("部门构成分析表"), "CmdYes0");
  EXPECT_TRUE(view.periods.empty()) << "closing the report has unloaded it";
}

/// As a call of its own, which the workbench makes.
TEST_F(FrmBBTJTest, ShowsTheReportThatWasLookedAtLastAgain) {
  setenv("XDG_CONFIG_HOME", directory.path().c_str(), 1);
  context.programFolder = directory.path().string();
  RunTypeJobs jobs;
  addScreens(jobs, host);
  const auto showLast = [&] {
    EXPECT_THROW((*jobs.find(findExtraScreen("last-report")->job))(context, {}), EndProgram);
  };
  constexpr const char* kTitle = "账簿与报表";
  tells("还没有看过报表。", Icon::Information, kTitle);
  showLast();

  FrmBBTJ& form = open("价值结构分析表");
  choose(form, "Combo11", "2020.03");
  inModalForm([](QWidget& shown) { shown.close(); });
  click(form, "CmdYes1");
  const RecentReports recent(RecentReports::usualFile());
  EXPECT_EQ(recent.of(context.gstrZtFile, context.gstrAccountId).front().conditions, Lines{"period=2020.03"});
  inModalForm([](QWidget& shown) {
    EXPECT_EQ(textOf(shown, "lblTitle"), "价值结构分析表");
    shown.close();
  });
  showLast();

  RecentReports(RecentReports::usualFile())
      .remember({context.gstrZtFile, context.gstrAccountId, "价值结构分析表", {"x=1"}, day("2020-3-31")});
  tells("“价值结构分析表”不能按原来的条件打开：报表“价值结构分析表”没有条件“x”，只有：period",
        Icon::Exclamation, kTitle);
  showLast();
}

}  // namespace
}  // namespace zelkor::test
