#pragma once

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

#include "depreciation/AllocationTable.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Shows how the last run's depreciation falls on departments or asset categories.
class FrmZJFPB final : public Form {
 public:
  explicit FrmZJFPB(FormHost& host);
  bool isScreen() const override { return true; }

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QComboBox* ComboQJ = make<QComboBox>("ComboQJ");
  QRadioButton* OptionBMFP = make<QRadioButton>("OptionBMFP", "按部门分配");
  QRadioButton* OptionLBFP = make<QRadioButton>("OptionLBFP", "按类别分配");
  QPushButton* CmdBMFPTJ = make<QPushButton>("CmdBMFPTJ", "部门分配条件");
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");

  void arrangeControls();
  void fillGrid(AllocationMode mode);
  void unlockModes();
};

}  // namespace zelkor
