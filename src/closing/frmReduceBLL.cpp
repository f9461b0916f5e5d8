#include "closing/frmReduceBLL.h"

#include <algorithm>

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
  return std::ranges::none_of(required(),
                              [&](std::size_t column) { return list().text(row, column).empty(); });
}

bool frmReduceBLL::stamp(std::size_t row) {
  return reduce_.UpdateCards(pickedWay(), list().text(row, date), list().text(row, reason),
                             list().text(row, assetNum));
}

}  // namespace zelkor
