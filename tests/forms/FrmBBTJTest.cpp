#include "reports/ConditionPages.h"
#include "reports/FrmBBTJ.h"
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

}  // namespace
}  // namespace zelkor::test
