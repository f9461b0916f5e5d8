#include <QLineEdit>

#include "archives/frmCnDate.h"
#include "archives/FrmFATypes.h"
#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "archives/frmType.h"
#include "archives/frmWait.h"
#include "screenshots/Pictures.h"
#include "ui/FlexGrid.h"
#include "vouchers/frmPZCode1.h"
#include "vouchers/frmPZDigest.h"
#include "vouchers/frmPZType.h"

namespace zelkor {
namespace {

void keepShown(Stage& stage, Form& form, const std::string& name) {
  form.show();
  stage.keep(form, name);
  form.close();
}

void showArchivePickers(Stage& stage) {
  FrmFATypes types(stage.host(), ArchiveKind::AssetTypes);
  types.setAssetTypeID("022");
  keepShown(stage, types, "FrmFATypes-types");
  FrmFATypes methods(stage.host(), ArchiveKind::Methods);
  methods.setAssetTypeID("4");
  keepShown(stage, methods, "FrmFATypes-methods");
  frmSelectDepart departs(stage.host());
  departs.setCode("302");
  keepShown(stage, departs, "frmSelectDepart");
  frmSelectUseStatus reductions(stage.host(), StatusPick::Reductions);
  reductions.setCode("205");
  keepShown(stage, reductions, "frmSelectUseStatus");
  frmType ways(stage.host());
  ways.setZkDataPath(stage.host().run().gstrZtFile);
  selectNode(ways, "(205)报废");
  keepShown(stage, ways, "frmType");
}

void showSmallControls(Stage& stage) {
  frmCnDate date(stage.host());
  keepShown(stage, date, "frmCnDate");
  frmWait wait(stage.host());
  wait.setLblCaption("正在处理，请稍候……");
  keepShown(stage, wait, "frmWait");
}

void showVoucherPickers(Stage& stage) {
  frmPZCode1 subjects(stage.host());
  subjects.setZKDatabase(stage.data());
  selectNode(subjects, "100201 工行存款");
  keepShown(stage, subjects, "frmPZCode1");
  stage.data().Execute("insert into dsign (csign,isignseq,ctext) values ('收',2,'收款凭证')");
  stage.data().Execute("insert into dsign (csign,isignseq,ctext) values ('付',3,'付款凭证')");
  frmPZType voucherTypes(stage.host(), stage.data());
  keepShown(stage, voucherTypes, "frmPZType");
  stage.data().Execute("delete from dsign where isignseq>1");
  frmPZDigest& digests = stage.open<frmPZDigest>();
  auto& grid = *digests.findChild<FlexGrid*>("MSFlexGrid1");
  grid.selectCell(3, 2);
  emit grid.clicked(grid.cellIndex(3, 2));
  stage.keep(digests, "frmPZDigest");
}

}  // namespace

void takePickerPictures(Stage& stage) {
  showArchivePickers(stage);
  showSmallControls(stage);
  showVoucherPickers(stage);
}

}  // namespace zelkor
