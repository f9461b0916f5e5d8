#include "store/settings/FrmInit.h"

#include <QSignalBlocker>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/settings/Parameters.h"
#include "ui/Focus.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

QString yesOrNo(bool value) {
  return value ? "是" : "否";
}

}  // namespace

FrmInit::FrmInit(FormHost& host) : FrmAccountSettings(host, "FrmInit", "固定资产初始化向导") {
  arrangeControls();
  connectEvents();
  Form_Load();
  showStep();
  OptionYes->setFocus();
}

void FrmInit::connectEvents() {
  connectSettings();
  on(OptionYes, &QRadioButton::clicked, &FrmInit::OptionYes_Click);
  on(OptionNo, &QRadioButton::clicked, &FrmInit::OptionNo_Click);
  on(ComboZTQYYF, &QComboBox::currentTextChanged,
     [this](const QString& month) { Lblzjfpyf->setText(month); });
  on(CheckJTZJ, &QCheckBox::toggled, &FrmInit::CheckJTZJ_Click);
  on(CmdPr, &QPushButton::clicked, &FrmInit::CmdPr_Click);
  on(CmdNext, &QPushButton::clicked, &FrmInit::CmdNext_Click);
  on(CmdFinish, &QPushButton::clicked, &FrmInit::CmdFinish_Click);
  on(CmdExit, &QPushButton::clicked, &FrmInit::CmdExit_Click);
}

void FrmInit::Form_Load() {
  account_ = readAccountHeader(run().dbZKSystem, run().gstrAccountId);
  TxtJBYZ->setPlainText(toQt(initTerms(run().gstrAccountId, account_)));
  for (const std::string& month : startMonths(account_, run().period())) ComboZTQYYF->addItem(toQt(month));
  fillLists();
  if (ComboZJFF->count() >= 3) ComboZJFF->setCurrentIndex(1);
  Lblzjfpyf->setText(ComboZTQYYF->currentText());
  ComboHZFPZQ->setCurrentIndex(0);
  loadCodes();
  CheckJTZJ->setChecked(true);
  CheckZWXTDZ->setChecked(true);
  CheckDZBP->setChecked(true);
  CmdNext->setEnabled(false);
  CmdFinish->setEnabled(false);
}

void FrmInit::loadCodes() {
  codingRule_.show(CodingRuleLengths::fromDigits(parameterDefault(data(), "sTypeNumType")));
  TxtXHCD->setText(toQt(parameterDefault(data(), "iCardSequenceNumLength")));
  OptionBMFSZD->setChecked(true);
  OptionBMFS_Click();
}

void FrmInit::showStep() {
  for (std::size_t i = 0; i < kSteps; ++i) {
    const bool current = static_cast<std::int16_t>(i) == step_;
    PicOK[i]->setVisible(current);
    QFont font = LblStep[i]->font();
    font.setBold(current);
    LblStep[i]->setFont(font);
  }
  Pages->setCurrentIndex(step_);
  CmdPr->setEnabled(step_ > 0);
  CmdFinish->setEnabled(step_ == kLastStep);
  // Of the two that are left, the one that goes on, which asks before it writes.
  if (step_ == kLastStep) CmdFinish->setFocus();
  CmdNext->setEnabled(step_ < kLastStep && OptionYes->isChecked());
  setDefaultButton(step_ == kLastStep ? CmdFinish : CmdNext);
}

/// Enter on the consent gives it and leads on.
bool FrmInit::enterPressed(QObject* control) {
  if (control != OptionYes) return false;
  OptionYes->click();
  CmdNext->setFocus();
  return true;
}

void FrmInit::OptionYes_Click() {
  CmdNext->setEnabled(true);
}

void FrmInit::OptionNo_Click() {
  CmdNext->setEnabled(false);
  CmdFinish->setEnabled(false);
}

void FrmInit::CheckJTZJ_Click(bool ticked) {
  bool depreciates = ticked;
  if (!ticked) {
    const Answer answer = run().dialogs.MsgBox(
        "如果选择'本账套不提折旧':\n则本账套内所有资产不能计提折旧,系统内与折旧有关的操作全部无效,"
        "并且一经保存此设置(并"
        "输入业务数据),则此设置无法修改!\n本账套确实不提折旧?",
        Buttons::YesNo, Icon::Question, kTitle);
    depreciates = answer != Answer::Yes;
    const QSignalBlocker quiet(CheckJTZJ);
    CheckJTZJ->setChecked(depreciates);
  }
  ComboZJFF->setEnabled(depreciates);
  ComboHZFPZQ->setEnabled(depreciates);
}

void FrmInit::CmdPr_Click() {
  --step_;
  showStep();
}

bool FrmInit::subjectIsRight(QLineEdit& field, const char* emptyText) {
  if (!field.text().isEmpty()) return checkSubjectField(run(), field);
  run().dialogs.MsgBox(std::string("有如下错误：\n\n") + emptyText, Buttons::Ok, Icon::Exclamation, kTitle);
  return false;
}

void FrmInit::CmdNext_Click() {
  ++step_;
  showStep();
  if (step_ < kLastStep) return;
  QLineEdit* wrong = CheckZWXTDZ->isChecked() ? wrongSubject() : nullptr;
  if (!wrong) return showSummary();
  CmdPr_Click();
  returnTo(*wrong);
}

/// The first subject that is not right, which has been said; nullptr where both are.
QLineEdit* FrmInit::wrongSubject() {
  if (!subjectIsRight(*TxtGDZCDZKM, "固定资产对账科目不正确!")) return TxtGDZCDZKM;
  if (!subjectIsRight(*TxtLJZJDZKM, "累计折旧对账科目不正确!")) return TxtLJZJDZKM;
  return nullptr;
}

void FrmInit::showSummary() {
  const bool depreciates = CheckJTZJ->isChecked();
  const QString month = ComboZTQYYF->currentText();
  LblZTMC->setText(toQt(account_.name));
  LblSYDW->setText(toQt(account_.unit));
  LblZGXM->setText(toQt(account_.manager));
  LblZCLBBMFS->setText(toQt(codingRule().digits()));
  LblGDZCBMFS->setText(OptionBMFSSD->isChecked() ? OptionBMFSSD->text()
                                                 : "自动编码 = " + ComboBMFS->currentText());
  LblJTZJ->setText(yesOrNo(depreciates));
  LblZYZJFF->setText(depreciates ? ComboZJFF->currentText() : QString());
  LblFPZQ->setText(depreciates ? ComboHZFPZQ->currentText() + "个月" : QString());
  LblSYYF->setText(month.left(4) + "年" + month.right(2) + "月01日");
  LblZWDZ->setText(yesOrNo(CheckZWXTDZ->isChecked()));
  LblYXJZ->setText(yesOrNo(CheckDZBP->isChecked()));
  LblGDZCDZKM->setText(TxtGDZCDZKM->text());
  LblLJZJDZKM->setText(TxtLJZJDZKM->text());
}

InitChoices FrmInit::choices() const {
  InitChoices chosen;
  chosen.startMonth = fromQt(ComboZTQYYF->currentText());
  chosen.categoryCodingRule = fromQt(LblZCLBBMFS->text());
  chosen.cardNumbering = cardNumbering();
  chosen.cardSequenceLength = fromQt(TxtXHCD->text());
  chosen.depreciates = CheckJTZJ->isChecked();
  chosen.methodNumber = ComboZJFF->currentIndex() + 1;
  chosen.depreciatesRestInLastMonth = CheckTZZJ->isChecked();
  chosen.allocationCycle = fromQt(ComboHZFPZQ->currentText());
  chosen.reconcilesWithLedger = CheckZWXTDZ->isChecked();
  chosen.closesUnreconciled = CheckDZBP->isChecked();
  chosen.assetsSubject = fromQt(TxtGDZCDZKM->text());
  chosen.depreciationSubject = fromQt(TxtLJZJDZKM->text());
  return chosen;
}

void FrmInit::CmdFinish_Click() {
  const Answer answer = run().dialogs.MsgBox(
      "已经完成了新账套的所有设置工作.\n是否确定所设置的信息完全正确并保存对新账套的所有设置?",
      Buttons::YesNo, Icon::Question, kTitle);
  if (answer != Answer::Yes) return;
  storeInitChoices(data(), choices());
  run().dialogs.MsgBox("已完成初始化本固定资产账套!", Buttons::Ok, Icon::Information, kTitle);
  throw EndProgram{};
}

}  // namespace zelkor
