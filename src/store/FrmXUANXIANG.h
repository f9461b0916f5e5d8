#pragma once

#include <array>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include "store/Options.h"
#include "ui/CodingRuleBoxes.h"
#include "ui/Form.h"

namespace zelkor {

/// Shows and changes the account set's options.
class FrmXUANXIANG final : public Form {
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
  QComboBox* ComboZJFF = make<QComboBox>("ComboZJFF");
  QComboBox* ComboHZFPZQ = make<QComboBox>("ComboHZFPZQ");
  QLabel* Lblzjfpyf = make<QLabel>("Lblzjfpyf");
  QCheckBox* CheckTZZJ =
      make<QCheckBox>("CheckTZZJ", "当(月初已计提月份=可使用月份-1)时将剩余折旧全部提足(工作量法除外)");
  // ledger
  QCheckBox* CheckZWXTDZ = make<QCheckBox>("CheckZWXTDZ", "与账务系统进行对账");
  QGroupBox* FrameDZKM = nullptr;
  QLineEdit* TxtGDZCDZKM = make<QLineEdit>("TxtGDZCDZKM");
  QPushButton* CmdGDZCDZKM = make<QPushButton>("CmdGDZCDZKM", "…");
  QLineEdit* TxtLJZJDZKM = make<QLineEdit>("TxtLJZJDZKM");
  QPushButton* CmdLJZJDZKM = make<QPushButton>("CmdLJZJDZKM", "…");
  QCheckBox* CheckDZBP = make<QCheckBox>("CheckDZBP", "在对账不平情况下允许固定资产月末结账");
  QLineEdit* TxtQSGDZC = make<QLineEdit>("TxtQSGDZC");
  QPushButton* Command1 = make<QPushButton>("Command1", "…");
  QLineEdit* TxtQDLJZJ = make<QLineEdit>("TxtQDLJZJ");
  QPushButton* Command2 = make<QPushButton>("Command2", "…");
  QCheckBox* CheckLJZD = make<QCheckBox>("CheckLJZD", "业务发生后立即制单");
  QCheckBox* CheckJZQWC = make<QCheckBox>("CheckJZQWC", "月末结账前一定要完成制单登账业务");
  // codes and cards
  std::array<QLineEdit*, CodingRuleBoxes::levels> TxtBMCD =
      makeArray<QLineEdit, CodingRuleBoxes::levels>("TxtBMCD");
  std::array<UpDown*, CodingRuleBoxes::levels> UpDownBMCD =
      makeArray<UpDown, CodingRuleBoxes::levels>("UpDownBMCD");
  QLabel* LblBMZCD = make<QLabel>("LblBMZCD");
  QRadioButton* OptionBMFSSD = make<QRadioButton>("OptionBMFSSD", "手工输入");
  QRadioButton* OptionBMFSZD = make<QRadioButton>("OptionBMFSZD", "自动编码");
  QComboBox* ComboBMFS = make<QComboBox>("ComboBMFS");
  QLineEdit* TxtXHCD = make<QLineEdit>("TxtXHCD");
  UpDown* UpDownXHCD = make<UpDown>("UpDownXHCD");
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
  void connectSubject(QLineEdit* field, QPushButton* pick);

  void Form_Load();
  void loadAccount();
  void loadDepreciation();
  void loadLedger();
  void loadCodes();
  void loadTick(QCheckBox& box, const char* row);
  AccountOptions entered() const;

  void CheckZWXTDZ_Click(bool ticked);
  void OptionBMFS_Click();
  void leaveSubject(QLineEdit* field);
  void CmdOK_Click();
  void CmdCancel_Click() { close(); }
  void escapePressed() override { close(); }

  CodingRuleBoxes codingRule_{TxtBMCD, UpDownBMCD, LblBMZCD};
};

}  // namespace zelkor
