#pragma once

#include <array>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "store/settings/frmCodingRuleBoxes.h"
#include "ui/Form.h"

namespace zelkor {

/// The settings of an account set that the wizard asks for first and the options screen shows later: their
/// controls, and what these do to each other. To be left means the end of the program.
class FrmAccountSettings : public Form {
 protected:
  FrmAccountSettings(FormHost& host, const char* name, const char* caption);

  // depreciation
  QComboBox* ComboZJFF = make<QComboBox>("ComboZJFF");
  QComboBox* ComboHZFPZQ = make<QComboBox>("ComboHZFPZQ");
  QLabel* Lblzjfpyf = make<QLabel>("Lblzjfpyf");
  QCheckBox* CheckTZZJ =
      make<QCheckBox>("CheckTZZJ", "当(月初已计提月份=可使用月份-1)时将剩余折旧全部提足(工作量法除外)");
  // codes
  std::array<QLineEdit*, CodingRuleBoxes::kLevels> TxtBMCD =
      makeArray<QLineEdit, CodingRuleBoxes::kLevels>("TxtBMCD");
  std::array<UpDown*, CodingRuleBoxes::kLevels> UpDownBMCD =
      makeArray<UpDown, CodingRuleBoxes::kLevels>("UpDownBMCD");
  QLabel* LblBMZCD = make<QLabel>("LblBMZCD");
  QRadioButton* OptionBMFSSD = make<QRadioButton>("OptionBMFSSD", "手工输入");
  QRadioButton* OptionBMFSZD = make<QRadioButton>("OptionBMFSZD", "自动编码");
  QComboBox* ComboBMFS = make<QComboBox>("ComboBMFS");
  QLineEdit* TxtXHCD = make<QLineEdit>("TxtXHCD");
  UpDown* UpDownXHCD = make<UpDown>("UpDownXHCD");
  // ledger
  QCheckBox* CheckZWXTDZ = make<QCheckBox>("CheckZWXTDZ", "与账务系统进行对账");
  QGroupBox* FrameDZKM = nullptr;
  QLineEdit* TxtGDZCDZKM = make<QLineEdit>("TxtGDZCDZKM");
  QPushButton* CmdGDZCDZKM = make<QPushButton>("CmdGDZCDZKM", "…");
  QLineEdit* TxtLJZJDZKM = make<QLineEdit>("TxtLJZJDZKM");
  QPushButton* CmdLJZJDZKM = make<QPushButton>("CmdLJZJDZKM", "…");
  QCheckBox* CheckDZBP = make<QCheckBox>("CheckDZBP", "在对账不平情况下允许固定资产月末结账");

  /// Frames and fields for the forms' layouts; each to be taken once.
  QLayout* cycleField();
  QGroupBox* numberFrame();
  QGroupBox* subjectFrame();

  /// Fills the lists of methods, cycles and ways of numbering; nothing is chosen then.
  void fillLists();
  void connectSettings();
  /// Looks a subject up when its field is left, and lets one be picked by the button beside it.
  void connectSubject(QLineEdit* field, QPushButton* pick);
  /// A number that only the digits limit, beside its spinner.
  static void pairNumber(UpDown* spinner, QLineEdit* box);

  CodingRuleLengths codingRule() const { return codingRule_.rule(); }
  /// 0: by hand; otherwise the place of the way in its list, from 1.
  int cardNumbering() const { return OptionBMFSSD->isChecked() ? 0 : ComboBMFS->currentIndex() + 1; }

  void CheckZWXTDZ_Click(bool ticked);
  void enableNumbering();
  void OptionBMFS_Click();

  bool refusing_ = false;
  CodingRuleBoxes codingRule_{TxtBMCD, UpDownBMCD, LblBMZCD};
};

}  // namespace zelkor
