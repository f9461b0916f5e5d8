#include "changes/frmMoreDep.h"

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmMoreDep::frmMoreDep(FormHost& host) : Form(host, "frmMoreDep", "固定资产", Unload::Plain) {
  opS->setChecked(true);
  cmdOK->setShortcut(Qt::ALT | Qt::Key_Y);
  cmdCancel->setShortcut(Qt::ALT | Qt::Key_C);
  auto* choice = column({opS, opM});
  arrange(this, column({frame("本资产部门使用方式：", choice), row({stretch(), cmdOK, cmdCancel})}));
  choice->setContentsMargins(20, 16, 20, 16);
  resize(320, 170);
  on(cmdOK, &QPushButton::clicked, &frmMoreDep::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
}

void frmMoreDep::cmdOK_Click() {
  chosen_ = opM->isChecked() ? SeveralDepartments : OneDepartment;
  close();
}

/// Enter on a choice confirms it: there is nothing else to move on to.
bool frmMoreDep::enterPressed(QObject* control) {
  if (control != opS && control != opM) return false;
  cmdOK_Click();
  return true;
}

}  // namespace zelkor
