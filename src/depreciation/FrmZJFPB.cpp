#include "depreciation/FrmZJFPB.h"

#include <QAction>
#include <QBoxLayout>

#include "base/RuntimeError.h"
#include "ui/Layout.h"
#include "vouchers/frmPZFill.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr std::size_t kNameColumn = 1;

}  // namespace

FrmZJFPB::FrmZJFPB(FormHost& host) : Form(host, "FrmZJFPB", "折旧分配表", Unload::Plain) {
  arrangeControls();
  ComboQJ->addItem(toQt(allocationPeriod(run().gdOpDate)));
  OptionBMFP->setChecked(true);
  on(OptionBMFP, &QRadioButton::clicked, [this] { fillGrid(AllocationMode::Department); });
  on(OptionLBFP, &QRadioButton::clicked, [this] { fillGrid(AllocationMode::AssetType); });
  unlockModes();
  fillGrid(AllocationMode::Department);
  MSFlexGrid1->widenColumns();
  MSFlexGrid1->fillWith(kNameColumn);
  MSFlexGrid1->setFocus();
}

void FrmZJFPB::arrangeControls() {
  setCommands(Toolbar1,
              {{"凭证", [this] { showVoucherWindow(host(), {.scOutSign = "折旧计提", .eventNumber = {}}); }},
               {"修改", &FrmZJFPB::unlockModes},
               {},
               {"退出", [] { throw EndProgram{}; }}});
  Toolbar1->button("修改").setCheckable(true);
  lockIdle(CmdBMFPTJ);
  arrangeScreen(this, Toolbar1,
                column({row({captioned("会计期间：", ComboQJ), space(16), OptionBMFP, OptionLBFP, CmdBMFPTJ,
                             stretch()}),
                        wide(MSFlexGrid1)}));
  resize(700, 520);
}

void FrmZJFPB::fillGrid(AllocationMode mode) {
  MSFlexGrid1->setGrid(allocationTable(data(), mode));
}

void FrmZJFPB::unlockModes() {
  const bool pressed = Toolbar1->button("修改").isChecked();
  OptionBMFP->setEnabled(pressed);
  OptionLBFP->setEnabled(pressed);
}

}  // namespace zelkor
