#include "store/FrmInit.h"

#include <QSignalBlocker>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/Parameters.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

void fill(QComboBox& combo, const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) combo.addItem(toQt(entry));
}

QString yesOrNo(bool value) {
  return value ? "是" : "否";
}

}  // namespace

FrmInit::FrmInit(FormHost& host) : Form(host, "FrmInit", "固定资产初始化向导", Unload::EndsProgram) {
  arrangeControls();
  Form_Load();
  connectEvents();
  showStep();
}

void FrmInit::connectEvents() {
  on(OptionYes, &QRadioButton::clicked, &FrmInit::OptionYes_Click);
  on(OptionNo, &QRadioButton::clicked, &FrmInit::OptionNo_Click);
  on(ComboZTQYYF, &QComboBox::currentTextChanged,
     [this](const QString& month) { Lblzjfpyf->setText(month); });
  on(CheckJTZJ, &QCheckBox::toggled, &FrmInit::CheckJTZJ_Click);
  on(OptionBMFSSD, &QRadioButton::clicked, &FrmInit::OptionBMFSSD_Click);
  on(OptionBMFSZD, &QRadioButton::clicked, &FrmInit::OptionBMFSZD_Click);
  on(CheckZWXTDZ, &QCheckBox::toggled, &FrmInit::CheckZWXTDZ_Click);
  on(TxtGDZCDZKM, &QLineEdit::editingFinished, [this] { leaveSubject(TxtGDZCDZKM); });
  on(TxtLJZJDZKM, &QLineEdit::editingFinished, [this] { leaveSubject(TxtLJZJDZKM); });
  on(CmdGDZCDZKM, &QPushButton::clicked, [this] { pickSubjectInto(host(), *TxtGDZCDZKM); });
  on(CmdLJZJDZKM, &QPushButton::clicked, [this] { pickSubjectInto(host(), *TxtLJZJDZKM); });
  on(CmdPr, &QPushButton::clicked, &FrmInit::CmdPr_Click);
  on(CmdNext, &QPushButton::clicked, &FrmInit::CmdNext_Click);
  on(CmdFinish, &QPushButton::clicked, &FrmInit::CmdFinish_Click);
  on(CmdExit, &QPushButton::clicked, &FrmInit::CmdExit_Click);
}

void FrmInit::Form_Load() {
  account_ = readAccountHeader(run().dbZKSystem, run().gstrAccountId);
  TxtJBYZ->setPlainText(toQt(initTerms(run().gstrAccountId, account_)));
  fill(*ComboZTQYYF, startMonths(account_, run().period()));
  fill(*ComboZJFF, depreciationMethodNames(data()));
  if (ComboZJFF->count() >= 3) ComboZJFF->setCurrentIndex(1);
  Lblzjfpyf->setText(ComboZTQYYF->currentText());
  for (const char* months : {"1", "2", "3", "4", "6", "12"}) ComboHZFPZQ->addItem(months);
  loadCodes();
  CheckJTZJ->setChecked(true);
  CheckZWXTDZ->setChecked(true);
  CheckDZBP->setChecked(true);
  CmdNext->setEnabled(false);
  CmdFinish->setEnabled(false);
}

void FrmInit::loadCodes() {
  codingRule_.show(CodingRuleLengths::fromDigits(parameterDefault(data(), "sTypeNumType")));
  fill(*ComboBMFS,
       {"类别编号＋序号", "部门编号＋序号", "类别编号＋部门编号＋序号", "部门编号＋类别编号＋序号"});
  UpDownXHCD->setBuddy(TxtXHCD);
  UpDownXHCD->setValue(toQt(parameterDefault(data(), "iCardSequenceNumLength")).toInt());
  OptionBMFSZD->setChecked(true);
}

void FrmInit::showStep() {
  for (std::size_t i = 0; i < steps; ++i) {
    const bool current = static_cast<std::int16_t>(i) == step_;
    PicOK[i]->setVisible(current);
    QFont font = LblStep[i]->font();
    font.setBold(current);
    LblStep[i]->setFont(font);
  }
  Pages->setCurrentIndex(step_);
  CmdPr->setEnabled(step_ > 0);
  CmdNext->setEnabled(step_ < lastStep && OptionYes->isChecked());
  CmdFinish->setEnabled(step_ == lastStep);
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

void FrmInit::OptionBMFSSD_Click() {
  ComboBMFS->setEnabled(false);
  TxtXHCD->setEnabled(false);
  UpDownXHCD->setEnabled(false);
}

void FrmInit::OptionBMFSZD_Click() {
  ComboBMFS->setEnabled(true);
  TxtXHCD->setEnabled(true);
  UpDownXHCD->setEnabled(true);
  if (ComboBMFS->currentIndex() < 0) ComboBMFS->setCurrentIndex(0);
}

void FrmInit::CheckZWXTDZ_Click(bool ticked) {
  CheckDZBP->setEnabled(ticked);
  FrameDZKM->setEnabled(ticked);
}

/// An empty field is left alone: it is asked for when the last step is reached.
void FrmInit::leaveSubject(QLineEdit* field) {
  if (!field->text().isEmpty()) checkSubjectField(run(), *field);
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
  if (step_ < lastStep) return;
  if (CheckZWXTDZ->isChecked() && (!subjectIsRight(*TxtGDZCDZKM, "固定资产对账科目不正确!") ||
                                   !subjectIsRight(*TxtLJZJDZKM, "累计折旧对账科目不正确!"))) {
    CmdPr_Click();
    return;
  }
  showSummary();
}

void FrmInit::showSummary() {
  const bool depreciates = CheckJTZJ->isChecked();
  const QString month = ComboZTQYYF->currentText();
  LblZTMC->setText(toQt(account_.name));
  LblSYDW->setText(toQt(account_.unit));
  LblZGXM->setText(toQt(account_.manager));
  LblZCLBBMFS->setText(toQt(codingRule_.rule().digits()));
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
  chosen.cardNumbering = OptionBMFSSD->isChecked() ? 0 : ComboBMFS->currentIndex() + 1;
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
