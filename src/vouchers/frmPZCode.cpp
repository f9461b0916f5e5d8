#include "vouchers/frmPZCode.h"

#include "store/settings/SubjectText.h"

namespace zelkor {

frmPZCode::frmPZCode(FormHost& host) : frmPZCode(host, host.run().dbZKData) {}

frmPZCode::frmPZCode(FormHost& host, const Database& database) : frmSubjectPicker(host, "frmPZCode") {
  setSubjectData(database);
}

void frmPZCode::pick(const PickedSubject& picked) {
  run().pickedSubject = picked;
  taken_ = true;
}

void pickSubjectInto(FormHost& host, QLineEdit& field) {
  frmPZCode picker(host);
  picker.showSubject(field.text());
  host.showModal(picker);
  const PickedSubject picked = picker.picked();
  if (!picked.code.empty()) field.setText(toQt(picked.code + "," + picked.name));
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
