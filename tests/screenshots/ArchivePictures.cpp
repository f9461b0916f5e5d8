#include "archives/FrmAllPerson.h"
#include "archives/FrmDepartment.h"
#include "archives/FrmDepartPzCode.h"
#include "archives/FrmFLBMB.h"
#include "archives/frmUseStatus.h"
#include "archives/FrmZJFFCZ.h"
#include "screenshots/Pictures.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

void showCategories(Stage& stage) {
  FrmFLBMB& form = stage.open<FrmFLBMB>();
  stage.keep(form, "FrmFLBMB-list");
  selectNode(form, "TvLeft", "(02)机器设备");
  press(form, "增加");
  stage.keep(form, "FrmFLBMB-add");
}

void showDepartments(Stage& stage) {
  FrmDepartment& form = stage.open<FrmDepartment>();
  selectNode(form, "TvLeft", "(301)一车间");
  stage.keep(form, "FrmDepartment");
  press(form, "修改");
  control<QLineEdit>(form, "TxtEdit6").setText("两班制");
  stage.keep(form, "FrmDepartment-edit");
  stage.data().Execute(
      "update fa_departments set sSubjectNum='550202',sSubjectName='折旧费' where sNum<>'&'");
  stage.data().Execute("update fa_departments set sSubjectNum='410502' where sNum like '3*'");
  FrmDepartPzCode& subjects = stage.open<FrmDepartPzCode>();
  stage.keep(subjects, "FrmDepartPzCode-list");
  selectNode(subjects, "TvLeft", "(301)一车间");
  press(subjects, "修改");
  stage.keep(subjects, "FrmDepartPzCode-edit");
}

void showStatuses(Stage& stage) {
  frmUseStatus& form = stage.open<frmUseStatus>();
  stage.keep(form, "frmUseStatus-list");
  selectNode(form, "TreeView1", "使用中");
  press(form, "tlAdd");
  stage.keep(form, "frmUseStatus-add");
}

void showPickers(Stage& stage) {
  auto& methods = stage.open<FrmZJFFCZ>();
  methods.setpZJFF("工作量法");
  stage.keep(methods, "FrmZJFFCZ");
  auto& subjects = stage.open<frmPZCode>();
  selectNode(subjects, "TvCode", "1501 固定资产");
  stage.keep(subjects, "frmPZCode");
  ClsBLLDepart departs(stage.run().engine);
  departs.setZkDataPath(stage.run().gstrZtFile);
  auto& staff = stage.open<FrmAllPerson>();
  staff.setAllPerson(departs.GetAllPersons());
  stage.keep(staff, "FrmAllPerson");
}

}  // namespace

void takeArchivePictures(Stage& stage) {
  showCategories(stage);
  showDepartments(stage);
  showStatuses(stage);
  showPickers(stage);
}

}  // namespace zelkor
