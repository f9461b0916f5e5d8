#include "cards/frmCards.h"
#include "cards/FrmManageCards.h"
#include "screenshots/Pictures.h"

namespace zelkor {

void takeCardListPictures(Stage& stage) {
  auto& form = stage.open<FrmManageCards>(stage.run().gstrZtFile);
  stage.keep(form, "FrmManageCards");
  selectNode(form, "tvwType", "3 生产部(3)");
  control<QTreeWidget>(form, "tvwType").currentItem()->setExpanded(true);
  stage.keep(form, "FrmManageCards-department");
  control<QComboBox>(form, "cmbType").setCurrentText("按类别查询");
  control<QComboBox>(form, "cmbFA").setCurrentText("在役资产");
  selectNode(form, "tvwType", "02 机器设备(2)");
  stage.keep(form, "FrmManageCards-category");
  auto& picker = stage.open<frmCards>();
  gridOf(picker, "mshTable").selectGridRow(2);
  stage.keep(picker, "frmCards");
}

}  // namespace zelkor
