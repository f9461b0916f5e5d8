#include "archives/frmCnDate.h"
#include "archives/FrmFATypes.h"
#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "archives/frmType.h"
#include "archives/frmWait.h"
#include "screenshots/Pictures.h"
#include "vouchers/frmPZCode1.h"
#include "vouchers/frmPZDigest.h"
#include "vouchers/frmPZType.h"

namespace zelkor {
namespace {

void showArchivePickers(Stage& stage) {
  auto& types = stage.open<FrmFATypes>(ArchiveKind::AssetTypes);
  types.setAssetTypeID("022");
  stage.keep(types, "FrmFATypes-types");
  auto& methods = stage.open<FrmFATypes>(ArchiveKind::Methods);
  methods.setAssetTypeID("4");
  stage.keep(methods, "FrmFATypes-methods");
  auto& departs = stage.open<frmSelectDepart>();
  departs.setCode("302");
  stage.keep(departs, "frmSelectDepart");
  auto& reductions = stage.open<frmSelectUseStatus>(StatusPick::Reductions);
  reductions.setCode("205");
  stage.keep(reductions, "frmSelectUseStatus");
  auto& ways = stage.open<frmType>();
  ways.setZkDataPath(stage.run().gstrZtFile);
  selectNode(ways, "tvwType", "(205)报废");
  stage.keep(ways, "frmType");
}

void showSmallControls(Stage& stage) {
  stage.keep(stage.open<frmCnDate>(), "frmCnDate");
  auto& wait = stage.open<frmWait>();
  wait.setLblCaption("正在处理，请稍候……");
  stage.keep(wait, "frmWait");
  wait.close();
}

void showVoucherPickers(Stage& stage) {
  auto& subjects = stage.open<frmPZCode1>();
  subjects.setZKDatabase(stage.data());
  selectNode(subjects, "TvCode", "100201 工行存款");
  stage.keep(subjects, "frmPZCode1");
  stage.data().Execute("insert into dsign (csign,isignseq,ctext) values ('收',2,'收款凭证')");
  stage.data().Execute("insert into dsign (csign,isignseq,ctext) values ('付',3,'付款凭证')");
  stage.keep(stage.open<frmPZType>(stage.data()), "frmPZType");
  stage.data().Execute("delete from dsign where isignseq>1");
  auto& digests = stage.open<frmPZDigest>();
  clickCell(gridOf(digests, "MSFlexGrid1"), 3, 2);
  stage.keep(digests, "frmPZDigest");
}

}  // namespace

void takePickerPictures(Stage& stage) {
  showArchivePickers(stage);
  showSmallControls(stage);
  showVoucherPickers(stage);
}

}  // namespace zelkor
