#pragma once

#include <QComboBox>
#include <QTreeWidget>
#include <string>

#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Lists per card what the monthly runs stored.
class frmZJQD final : public Form {
 public:
  explicit frmZJQD(FormHost& host);
  bool isScreen() const override { return true; }

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QComboBox* cmbDate = make<QComboBox>("cmbDate");
  QComboBox* cmbDepart = make<QComboBox>("cmbDepart");
  QTreeWidget* trvDepart = make<QTreeWidget>("trvDepart");
  FlexGrid* MSFZJQD = make<FlexGrid>("MSFZJQD");

  void arrangeControls();
  bool byDepartment() const { return cmbDepart->currentIndex() == 0; }
  void loadNodes();
  void fillGrid();
  void cmbDepart_Click();
};

}  // namespace zelkor
