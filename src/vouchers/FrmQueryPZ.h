#pragma once

#include <QComboBox>
#include <QLabel>
#include <QStatusBar>

#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"
#include "vouchers/ClsQueryPZ.h"

namespace zelkor {

/// Lists the vouchers of this module that are in the ledger and deletes one on request.
class FrmQueryPZ final : public Form {
 public:
  FrmQueryPZ(FormHost& host, const std::string& zkDataPath);

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QLabel* Label1 = make<QLabel>("Label1", "期间：");
  QComboBox* cmdStart = make<QComboBox>("cmdStart");
  QLabel* Label2 = make<QLabel>("Label2", "---");
  QComboBox* cmdEnd = make<QComboBox>("cmdEnd");
  FlexGrid* MshPZ = make<FlexGrid>("MshPZ");
  QStatusBar* StatusBar1 = make<QStatusBar>("StatusBar1");

  void arrangeControls();
  void fillPeriods();
  void fillGrid();
  void remove();
  void Form_Unload() override { query_.CloseZkData(); }

  ClsQueryPZ query_;
};

}  // namespace zelkor
