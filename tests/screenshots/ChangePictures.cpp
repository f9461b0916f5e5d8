#include <initializer_list>
#include <QApplication>

#include "changes/CardDetailList.h"
#include "changes/frmAssetsAlteration.h"
#include "changes/FrmBalanType.h"
#include "changes/frmCardDetail.h"
#include "changes/frmDepart.h"
#include "changes/FrmFABalance.h"
#include "changes/frmMoreDep.h"
#include "changes/frmProject.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

frmAssetsAlteration& showSheet(Stage& stage, ChangeKind kind, const std::string& name,
                               std::initializer_list<const char*> texts) {
  auto& form = stage.open<frmAssetsAlteration>(kind);
  form.activateWindow();
  QApplication::processEvents();
  for (const char* text : texts) enter(form, "txtContent", text);
  stage.keep(form, "frmAssetsAlteration-" + name);
  return form;
}

void showSheets(Stage& stage) {
  showSheet(stage, ChangeKind::OriginalValue, "value", {"00009", "12000", "加装数控系统"});
  showSheet(stage, ChangeKind::UsageStatus, "status", {"00012"});
  showSheet(stage, ChangeKind::AccumulatedDepr, "depreciation", {"00027", "60000"});
  auto& life = showSheet(stage, ChangeKind::UsefulLife, "life", {"00012", "12年0月", "大修后延长"});
  showSheet(stage, ChangeKind::ResidualValue, "residual", {"00027"});
  showSheet(stage, ChangeKind::Transfer, "transfer", {"00009", "", "二车间西侧"});
  press(life, "保存");
  stage.keep(life, "frmAssetsAlteration-stored");
}

void showSplit(Stage& stage) {
  auto& split = stage.open<frmDepart>();
  auto& grid = gridOf(split, "MSFl1");
  auto* editor = grid.viewport()->findChild<CellEditor*>();
  for (const char* text : {"301", "60", "410502", "", "302", "40"}) {
    if (!editor->isOpen()) sendKey(grid, Qt::Key_Return);
    enter(split, "txtEdit", text);
  }
  stage.keep(split, "frmDepart");
}

void showPickers(Stage& stage) {
  stage.keep(stage.open<frmMoreDep>(), "frmMoreDep");
  stage.keep(stage.open<frmProject>(), "frmProject");
  stage.keep(stage.open<FrmBalanType>(), "FrmBalanType");
  stage.keep(
      stage.open<frmCardDetail>(cardDetailList(stage.data(), ChangeKind::Transfer, stage.run().gdOpDate)),
      "frmCardDetail");
  showSplit(stage);
}

}  // namespace

void takeChangePictures(Stage& stage) {
  stage.enterRegister();
  showSheets(stage);
  stage.keep(stage.open<FrmFABalance>(stage.run().gstrZtFile), "FrmFABalance");
  showPickers(stage);
  stage.data().Execute("delete from fa_Vouchers");
  stage.enterRegister();
}

}  // namespace zelkor
