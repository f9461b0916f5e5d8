#include "vouchers/FrmSetPZType.h"

#include "ui/Layout.h"
#include "vouchers/VoucherTypeTable.h"

namespace zelkor {

using namespace layout;

FrmSetPZType::FrmSetPZType(FormHost& host, ClsBLLPZType& BLLPZType)
    : Form(host, "FrmSetPZType", "凭证类别预置", Unload::Plain), BLLPZType_(BLLPZType) {
  arrangeControls();
  on(cmdOK, &QPushButton::clicked, &FrmSetPZType::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
}

void FrmSetPZType::arrangeControls() {
  for (std::size_t i = 0; i < OptType.size(); ++i) {
    OptType[i]->setText(toQt(voucherTypePresets()[i].caption));
  }
  OptType[0]->setChecked(true);
  auto* options = column({OptType[0], OptType[1], OptType[2], OptType[3], OptType[4]});
  options->setContentsMargins(14, 8, 14, 12);
  options->setSpacing(10);
  arrange(this, column({wide(frame("分类方式", options)), row({stretch(), cmdOK, cmdCancel})}));
  resize(480, 260);
}

void FrmSetPZType::cmdOK_Click() {
  for (std::size_t i = 0; i < OptType.size(); ++i) {
    if (!OptType[i]->isChecked()) continue;
    addPreset(BLLPZType_, voucherTypePresets()[i]);
    break;
  }
  close();
}

}  // namespace zelkor
