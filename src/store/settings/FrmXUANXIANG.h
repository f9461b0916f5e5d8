#pragma once

#include <QTabWidget>

#include "store/settings/FrmAccountSettings.h"
#include "store/settings/Options.h"

namespace zelkor {

/// Shows and changes the account set's options.
class FrmXUANXIANG final : public FrmAccountSettings {
 public:
  explicit FrmXUANXIANG(FormHost& host);

 private:
  QTabWidget* SSTab1 = make<QTabWidget>("SSTab1");
  // the account set
  QLabel* LblZTH = make<QLabel>("LblZTH");
  QLabel* LblZTMC = make<QLabel>("LblZTMC");
  QLabel* LblSYDW = make<QLabel>("LblSYDW");
  QLabel* LblBWB = make<QLabel>("LblBWB");
  QLabel* LblZGXM = make<QLabel>("LblZGXM");
  QLabel* LblQYYF = make<QLabel>("LblQYYF");
  // depreciation
  QLabel* LblJTZJ = make<QLabel>("LblJTZJ");
  // ledger
  QLineEdit* TxtQSGDZC = make<QLineEdit>("TxtQSGDZC");
  QPushButton* Command1 = make<QPushButton>("Command1", "…");
  QLineEdit* TxtQDLJZJ = make<QLineEdit>("TxtQDLJZJ");
  QPushButton* Command2 = make<QPushButton>("Command2", "…");
  QCheckBox* CheckLJZD = make<QCheckBox>("CheckLJZD", "业务发生后立即制单");
  QCheckBox* CheckJZQWC = make<QCheckBox>("CheckJZQWC", "月末结账前一定要完成制单登账业务");
  // codes and cards
  QCheckBox* CheckLXZJ = make<QCheckBox>("CheckLXZJ", "连续增加");
  QLineEdit* TxtSCSX = make<QLineEdit>("TxtSCSX");
  UpDown* UpDownSCSX = make<UpDown>("UpDownSCSX");

  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void arrangeControls();
  QLayout* accountPage();
  QLayout* depreciationPage();
  QLayout* ledgerPage();
  QLayout* codesPage();
  void connectEvents();

  void Form_Load();
  void loadAccount();
  void loadDepreciation();
  void loadLedger();
  void loadSubjects();
  void loadCodes();
  void loadTick(QCheckBox& box, const char* row);
  AccountOptions entered() const;

  void CmdOK_Click();
  void CmdCancel_Click() { close(); }
  void escapePressed() override { close(); }
};

}  // namespace zelkor
