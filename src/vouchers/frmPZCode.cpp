#include "vouchers/frmPZCode.h"

#include "store/SubjectText.h"

namespace zelkor {

frmPZCode::frmPZCode(FormHost& host) : frmPZCode(host, host.run().dbZKData) {}

frmPZCode::frmPZCode(FormHost& host, const Database& database) : frmSubjectPicker(host, "frmPZCode") {
  setSubjectData(database);
}

void pickSubjectInto(FormHost& host, QLineEdit& field) {
  frmPZCode picker(host);
  host.showModal(picker);
  if (!picker.picked().code.empty()) field.setText(toQt(picker.picked().code + "," + picker.picked().name));
}

bool checkSubjectField(RunContext& run, QLineEdit& field) {
  const auto subject = lookUpSubject(run.dbZKData, fromQt(field.text()));
  if (subject) {
    field.setText(toQt(*subject));
    return true;
  }
  run.dialogs.MsgBox("科目录入错误!", Buttons::Ok, Icon::Critical, "固定资产");
  field.clear();
  return false;
}

}  // namespace zelkor
