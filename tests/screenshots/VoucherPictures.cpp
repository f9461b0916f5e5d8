#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTabWidget>

#include "cards/VoucherStaging.h"
#include "screenshots/Pictures.h"
#include "ui/FlexGrid.h"
#include "vouchers/FrmBatBill.h"
#include "vouchers/FrmEditPZType.h"
#include "vouchers/frmPZFill.h"
#include "vouchers/FrmQueryPZ.h"
#include "vouchers/FrmSetPZType.h"

namespace zelkor {
namespace {

FlexGrid& grid(QWidget& form, const char* name) {
  return *form.findChild<FlexGrid*>(name);
}

/// Types into the open cell editor of a grid and ends it by Enter.
void enterText(FlexGrid& list, const char* text) {
  auto& box = *list.findChild<QLineEdit*>("TxtInput");
  box.setText(text);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&box, &enter);
}

void clickCell(FlexGrid& list, std::size_t row, std::size_t column) {
  list.selectCell(row, column);
  emit list.clicked(list.cellIndex(row, column));
}

/// Some additions that wait for their vouchers, beside the month's depreciation where it has been run.
void stageEvents(Stage& stage) {
  const char* cards[][3] = {{"00101", "101", "286000"},
                            {"00102", "101", "4580.5"},
                            {"00103", "102", "125000"},
                            {"00104", "103", "36800"},
                            {"00105", "101", "9600"}};
  for (const auto& [number, way, value] : cards) {
    stageNewAsset(stage.data(), stage.host().run(), {number, way, value, "301", stage.host().run().period()});
  }
}

void setSubjects(FlexGrid& lines) {
  for (std::size_t row = 1; row < lines.grid().rows(); ++row) {
    clickCell(lines, row, line_column::Subject);
    enterText(lines, lines.grid().text(row, line_column::Side) == "借" ? "1501" : "100201");
  }
}

void takeBatchBilling(Stage& stage) {
  auto& form = stage.open<FrmBatBill>();
  FlexGrid& selection = grid(form, "MSFlexGridXZ");
  const std::size_t last = selection.grid().rows() - 1;
  for (const std::size_t row : {last - 2, last}) {
    emit selection.rowOpened(row);
    clickCell(selection, row, selection_column::MergeNumber);
    enterText(selection, "1");
  }
  stage.keep(form, "FrmBatBill");
  form.findChild<QTabWidget*>("SSTab1")->setCurrentIndex(1);
  FlexGrid& lines = grid(form, "MSFlexGridSZ");
  setSubjects(lines);
  lines.selectCell(2, line_column::Subject);
  stage.keep(form, "FrmBatBill-lines");
  press(form, "保存");
}

void takeVoucherWindow(Stage& stage, const VoucherRequest& request) {
  auto& form = stage.host().show<frmPZFill>(request);
  stage.keep(form, "frmPZFill");
  auto& editor = *form.findChild<LocalPZ*>("LocalPZ");
  editor.Row(2).Credit = Currency::fromDouble(30000);
  editor.showVoucher();
  FlexGrid& lines = grid(form, "Lines");
  lines.selectCell(2, 1);
  emit lines.rowOpened(2);
  stage.keep(form, "frmPZFill-unbalanced");
  auto& saved = stage.host().show<frmPZFill>(request);
  press(saved, "cmdTool4");
  stage.keep(saved, "frmPZFill-saved");
}

}  // namespace

void takeVoucherPictures(Stage& stage) {
  stageEvents(stage);
  takeBatchBilling(stage);
  const Recordset key = stage.data().OpenRecordset(
      "select cDefine10 from fa_ZWVouchers where not cDefine2 is null order by i_id");
  takeVoucherWindow(stage, {.scOutSign = key.TextOrEmpty("cDefine10"), .eventNumber = "00103"});
  stage.keep(stage.host().show<FrmQueryPZ>(stage.host().run().gstrZtFile), "FrmQueryPZ");

  ClsBLLPZType types(stage.host().run().engine);
  types.setZkDataPath(stage.host().run().gstrZtFile);
  stage.keep(stage.host().show<FrmSetPZType>(types), "FrmSetPZType");
  for (const char* type : {"'收',2,'收款凭证',1", "'付',3,'付款凭证',2", "'转',4,'转账凭证',3"}) {
    stage.data().Execute("insert into dsign (csign,isignseq,ctext,itype) values (" + std::string(type) + ")");
  }
  for (const char* limit : {"'收','1001'", "'收','1002'", "'付','1001'", "'付','1002'", "'转','1001'"}) {
    stage.data().Execute("insert into dsigns (csign,ccode) values (" + std::string(limit) + ")");
  }
  auto& edit = stage.host().show<FrmEditPZType>(types);
  FlexGrid& list = grid(edit, "GridDsign");
  clickCell(list, 3, type_column::Codes);
  stage.keep(edit, "FrmEditPZType");
  edit.close();
}

}  // namespace zelkor
