#include <sstream>

#include "cards/CardImport.h"
#include "cards/frmCards.h"
#include "cards/FrmManageCards.h"
#include "depreciation/CalcCardDepr.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "reports/FrmBBXS.h"
#include "reports/ReportRun.h"
#include "support/Paths.h"
#include "support/Widgets.h"
#include "ui/ProgressBox.h"

namespace zelkor::test {
namespace {

/// The sample register in January 2020, its month computed: what the lists and reports look like in use.
class SampleBooksTest : public FormTest {
 protected:
  SampleBooksTest() {
    context.gdOpDate = day("2020-1-31");
    std::ostringstream problems;
    importCards(context, readFile(dataFolder() / "sample-register.csv"), 1, problems);
    for (const std::string& card : rows("select distinct sCardNum from fa_Cards"))
      CalcCardDepr(context, card);
  }
};

TEST_F(SampleBooksTest, everyReportIsShownWithAllItsRows) {
  for (const ReportKind& kind : reportKinds()) {
    if (!kind.build) continue;
    SCOPED_TRACE(kind.name);
    ReportView view;
    runReport(context, kind, ReportConditions(2020), view);
    const std::size_t rows = view.grid.rows();
    auto& form = host.show<FrmBBXS>(std::move(view));
    keepPicture(form, "FrmBBXS-" + std::string(kind.key));
    EXPECT_EQ(gridOf(form, "MSFlexGrid1").grid().rows(), rows);
    EXPECT_GT(rows, gridOf(form, "MSFlexGrid1").grid().headerRows());
    form.close();
  }
}

TEST_F(SampleBooksTest, theCardsAreListedByDepartmentAndByCategory) {
  auto& form = host.show<FrmManageCards>(context.gstrZtFile);
  keepPicture(form, "FrmManageCards");
  const std::size_t all = body(form, "mshFA").size();
  selectNode(form, "tvwType", "3 生产部(3)");
  control<QTreeWidget>(form, "tvwType").currentItem()->setExpanded(true);
  keepPicture(form, "FrmManageCards-department");
  EXPECT_LT(body(form, "mshFA").size(), all);
  choose(form, "cmbType", "按类别查询");
  selectNode(form, "tvwType", "02 机器设备(2)");
  keepPicture(form, "FrmManageCards-category");
  EXPECT_LT(body(form, "mshFA").size(), all);
  auto& picker = host.show<frmCards>();
  gridOf(picker, "mshTable").selectGridRow(2);
  keepPicture(picker, "frmCards");
  EXPECT_EQ(body(picker, "mshTable").size(), all - 1) << "all but the sum";
}

TEST_F(SampleBooksTest, theMonthIsListedAndAllocated) {
  auto& list = host.show<frmZJQD>();
  keepPicture(list, "frmZJQD");
  auto& allocation = host.show<FrmZJFPB>();
  keepPicture(allocation, "FrmZJFPB");
  EXPECT_EQ(columnOf(list, "MSFZJQD", 5).back(), "239252.99") << "added up as shown, card by card";
  EXPECT_EQ(columnOf(allocation, "MSFlexGrid1", 6).back(), "239253.00");
  ProgressBox box;
  box.showState({"正在计提折旧，请稍候……", 12345, 100000});
  keepPicture(box, "ProgressBox");
}

}  // namespace
}  // namespace zelkor::test
