#include <utility>

#include "reports/FrmBB.h"
#include "reports/FrmBBTJ.h"
#include "reports/FrmBBXS.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

void showCatalogue(Stage& stage) {
  auto& form = stage.open<FrmBB>();
  selectNode(form, "TreeView1", "统计表");
  control<QTreeWidget>(form, "TreeView1").currentItem()->setExpanded(true);
  selectNode(form, "TreeView1", "固定资产统计表");
  stage.keep(form, "FrmBB");
}

void showConditions(Stage& stage) {
  int shown = 0;  // pages so far, a bit each
  for (const ReportKind& kind : reportKinds()) {
    const std::size_t page = numberOf(kind.page);
    if ((shown & 1 << page) != 0) continue;
    shown |= 1 << page;
    ReportView view;
    auto& form = stage.open<FrmBBTJ>(kind, view);
    stage.keep(form, "FrmBBTJ-" + std::to_string(page));
    form.close();
  }
}

void showReports(Stage& stage) {
  const ReportConditions conditions(2020);
  for (const ReportKind& kind : reportKinds()) {
    if (!kind.build) continue;
    ReportView view;
    runReport(stage.run(), kind, conditions, view);
    auto& form = stage.open<FrmBBXS>(std::move(view));
    stage.keep(form, "FrmBBXS-" + std::string(kind.key));
    form.close();
  }
}

}  // namespace

void takeReportPictures(Stage& stage) {
  stage.enterRegister();
  showCatalogue(stage);
  showConditions(stage);
  showReports(stage);
}

}  // namespace zelkor
