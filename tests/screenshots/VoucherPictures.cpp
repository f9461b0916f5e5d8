#include <QTabWidget>

#include "cards/VoucherStaging.h"
#include "screenshots/Pictures.h"
#include "vouchers/FrmBatBill.h"
#include "vouchers/FrmEditPZType.h"
#include "vouchers/frmPZFill.h"
#include "vouchers/FrmQueryPZ.h"
#include "vouchers/FrmSetPZType.h"

namespace zelkor {
namespace {

/// Writes into a cell of a grid.
void fill(FlexGrid& list, std::size_t row, std::size_t column, const char* text) {
  clickCell(list, row, column);
  enter(list, "TxtInput", text);
}

/// Some additions that wait for their vouchers, beside the month's depreciation where it has been run.
void stageEvents(Stage& stage) {
  const char* cards[][3] = {{"00101", "101", "286000"},
                            {"00102", "101", "4580.5"},
                            {"00103", "102", "125000"},
                            {"00104", "103", "36800"},
                            {"00105", "101", "9600"}};
  for (const auto& [number, way, value] : cards) {
    stageNewAsset(stage.data(), stage.run(), {number, way, value, "301", stage.run().period()});
  }
}

void setSubjects(FlexGrid& lines) {
  for (std::size_t row = 1; row < lines.grid().rows(); ++row) {
    const bool debit = lines.grid().text(row, line_column::Side) == "借";
    fill(lines, row, line_column::Subject, debit ? "1501" : "100201");
  }
}

void takeBatchBilling(Stage& stage) {
  auto& form = stage.open<FrmBatBill>();
  FlexGrid& selection = gridOf(form, "MSFlexGridXZ");
  const std::size_t last = selection.grid().rows() - 1;
  for (const std::size_t row : {last - 2, last}) {
    emit selection.rowOpened(row);
    fill(selection, row, selection_column::MergeNumber, "1");
  }
  stage.keep(form, "FrmBatBill");
  control<QTabWidget>(form, "SSTab1").setCurrentIndex(1);
  FlexGrid& lines = gridOf(form, "MSFlexGridSZ");
  setSubjects(lines);
  lines.selectCell(2, line_column::Subject);
  stage.keep(form, "FrmBatBill-lines");
  press(form, "保存");
}

void takeVoucherWindow(Stage& stage, const VoucherRequest& request) {
  auto& form = stage.open<frmPZFill>(request);
  stage.keep(form, "frmPZFill");
  auto& editor = control<LocalPZ>(form, "LocalPZ");
  editor.Row(2).Credit = Currency::fromDouble(30000);
  editor.showVoucher();
  FlexGrid& lines = gridOf(form, "Lines");
  lines.selectCell(2, 1);
  emit lines.rowOpened(2);
  stage.keep(form, "frmPZFill-unbalanced");
  auto& saved = stage.open<frmPZFill>(request);
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
  stage.keep(stage.open<FrmQueryPZ>(stage.run().gstrZtFile), "FrmQueryPZ");

  ClsBLLPZType types(stage.run().engine);
  types.setZkDataPath(stage.run().gstrZtFile);
  stage.keep(stage.open<FrmSetPZType>(types), "FrmSetPZType");
  for (const char* type : {"'收',2,'收款凭证',1", "'付',3,'付款凭证',2", "'转',4,'转账凭证',3"}) {
    stage.data().Execute("insert into dsign (csign,isignseq,ctext,itype) values (" + std::string(type) + ")");
  }
  for (const char* limit : {"'收','1001'", "'收','1002'", "'付','1001'", "'付','1002'", "'转','1001'"}) {
    stage.data().Execute("insert into dsigns (csign,ccode) values (" + std::string(limit) + ")");
  }
  auto& edit = stage.open<FrmEditPZType>(types);
  FlexGrid& list = gridOf(edit, "GridDsign");
  clickCell(list, 3, type_column::Codes);
  stage.keep(edit, "FrmEditPZType");
  edit.close();
}

}  // namespace zelkor
