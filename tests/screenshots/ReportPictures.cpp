#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

#include "apps/zelkorctl/CardImport.h"
#include "reports/FrmBB.h"
#include "reports/FrmBBTJ.h"
#include "reports/FrmBBXS.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

/// The sample register alone, entered in the first month: reports read that month's columns.
void enterRegister(Stage& stage) {
  for (const char* table : {"fa_Cards", "fa_Cards_Detail", "fa_DeptScale", "fa_DeprTransactions",
                            "fa_DeprTransactions_Detail", "fa_WorkLoad"}) {
    stage.data().Execute(std::string("delete from ") + table);
  }
  std::ifstream file(std::string(ZELKOR_DATA_DIR) + "/sample-register.csv", std::ios::binary);
  const std::string csv(std::istreambuf_iterator<char>(file), {});
  RunContext& run = stage.host().run();
  const DateTime opDate = std::exchange(run.gdOpDate, *parseDate("2020-1-31"));
  importCards(run, csv, 1, std::cerr);
  run.gdOpDate = opDate;
}

void showCatalogue(Stage& stage) {
  auto& form = stage.open<FrmBB>();
  selectNode(form, "统计表");
  form.findChild<QTreeWidget*>()->currentItem()->setExpanded(true);
  selectNode(form, "固定资产统计表");
  stage.keep(form, "FrmBB");
}

void showConditions(Stage& stage) {
  int shown = 0;  // pages so far, a bit each
  for (const ReportKind& kind : reportKinds()) {
    if ((shown & 1 << kind.page) != 0) continue;
    shown |= 1 << kind.page;
    ReportView view;
    auto& form = stage.host().show<FrmBBTJ>(kind, view);
    stage.keep(form, "FrmBBTJ-" + std::to_string(kind.page));
    form.close();
  }
}

void showReports(Stage& stage) {
  const ReportConditions conditions(2020);
  for (const ReportKind& kind : reportKinds()) {
    if (!kind.build) continue;
    ReportView view;
    runReport(stage.host().run(), kind, conditions, view);
    auto& form = stage.host().show<FrmBBXS>(std::move(view));
    stage.keep(form, "FrmBBXS-" + std::string(kind.key));
    form.close();
  }
}

}  // namespace

void takeReportPictures(Stage& stage) {
  enterRegister(stage);
  showCatalogue(stage);
  showConditions(stage);
  showReports(stage);
}

}  // namespace zelkor
