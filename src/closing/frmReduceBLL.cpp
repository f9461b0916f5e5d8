#include "closing/frmReduceBLL.h"

namespace zelkor {

using namespace disposal_column;

frmReduceBLL::frmReduceBLL(FormHost& host)
    : frmDisposalList(host, "frmReduceBLL", "资产减少", "mshTable"), reduce_(host.run().engine) {
  reduce_.setZkDataPath(run().gstrZtFile);
}

void frmReduceBLL::cmdOK_Click() {
  for (std::size_t row = list().headerRows(); row < list().rows();) {
    if (!isComplete(row)) {
      run().dialogs.MsgBox(list().text(row, cardNum) + "卡片信息填写不完整！");
      ++row;
    } else if (stamp(row)) {
      run().dialogs.MsgBox("所选卡片已经减少成功！", Buttons::Ok, Icon::Exclamation);
      TextGrid rest = list();
      rest.removeRow(row);
      setList(std::move(rest));
    } else {
      run().dialogs.MsgBox("所选卡片减少失败！", Buttons::Ok, Icon::Exclamation);
      ++row;
    }
  }
}

bool frmReduceBLL::isComplete(std::size_t row) const {
  for (const std::size_t column : {date, way, reason}) {
    if (list().text(row, column).empty()) return false;
  }
  return true;
}

bool frmReduceBLL::stamp(std::size_t row) {
  return reduce_.UpdateCards(pickedWay(), list().text(row, date), list().text(row, reason),
                             list().text(row, assetNum));
}

}  // namespace zelkor
