#pragma once

#include <array>
#include <QPlainTextEdit>
#include <QStackedWidget>

#include "store/settings/FrmAccountSettings.h"
#include "store/settings/InitWizard.h"

namespace zelkor {

/// The first-use wizard: collects what cannot be changed later in six steps and writes it at the end.
class FrmInit final : public FrmAccountSettings {
 public:
  explicit FrmInit(FormHost& host);

 private:
  static constexpr std::int16_t kLastStep = 5;
  static constexpr std::size_t kSteps = 6;

  // the list of steps
  std::array<QLabel*, kSteps> PicOK = makeArray<QLabel, kSteps>("PicOK");
  std::array<QLabel*, kSteps> LblStep = makeArray<QLabel, kSteps>("LblStep");
  QStackedWidget* Pages = make<QStackedWidget>("Pages");
  // 1 terms
  QPlainTextEdit* TxtJBYZ = make<QPlainTextEdit>("TxtJBYZ");
  QRadioButton* OptionYes = make<QRadioButton>("OptionYes", "我同意");
  QRadioButton* OptionNo = make<QRadioButton>("OptionNo", "我不同意");
  // 2 start month
  QComboBox* ComboZTQYYF = make<QComboBox>("ComboZTQYYF");
  // 3 depreciation
  QCheckBox* CheckJTZJ = make<QCheckBox>("CheckJTZJ", "本账套计提折旧");
  // 6 summary
  QLabel* LblZTMC = make<QLabel>("LblZTMC");
  QLabel* LblSYDW = make<QLabel>("LblSYDW");
  QLabel* LblZGXM = make<QLabel>("LblZGXM");
  QLabel* LblZCLBBMFS = make<QLabel>("LblZCLBBMFS");
  QLabel* LblGDZCBMFS = make<QLabel>("LblGDZCBMFS");
  QLabel* LblJTZJ = make<QLabel>("LblJTZJ");
  QLabel* LblZYZJFF = make<QLabel>("LblZYZJFF");
  QLabel* LblFPZQ = make<QLabel>("LblFPZQ");
  QLabel* LblSYYF = make<QLabel>("LblSYYF");
  QLabel* LblZWDZ = make<QLabel>("LblZWDZ");
  QLabel* LblYXJZ = make<QLabel>("LblYXJZ");
  QLabel* LblGDZCDZKM = make<QLabel>("LblGDZCDZKM");
  QLabel* LblLJZJDZKM = make<QLabel>("LblLJZJDZKM");

  QPushButton* CmdPr = make<QPushButton>("CmdPr", "<<上一步");
  QPushButton* CmdNext = make<QPushButton>("CmdNext", "下一步>>");
  QPushButton* CmdFinish = make<QPushButton>("CmdFinish", "完成");
  QPushButton* CmdExit = make<QPushButton>("CmdExit", "退出");

  void arrangeControls();
  QLayout* stepList();
  QLayout* termsPage();
  QLayout* startMonthPage();
  QLayout* depreciationPage();
  QLayout* codesPage();
  QLayout* ledgerPage();
  QLayout* summaryPage();
  void connectEvents();

  void Form_Load();
  void loadCodes();
  void showStep();
  void showSummary();
  InitChoices choices() const;
  bool subjectIsRight(QLineEdit& field, const char* emptyText);
  QLineEdit* wrongSubject();
  bool enterPressed(QObject* control) override;

  void OptionYes_Click();
  void OptionNo_Click();
  void CheckJTZJ_Click(bool ticked);
  void CmdPr_Click();
  void CmdNext_Click();
  void CmdFinish_Click();
  void CmdExit_Click() { close(); }

  std::int16_t step_ = 0;
  AccountHeader account_;
};

}  // namespace zelkor
