#include "store/FrmXUANXIANG.h"

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/InitWizard.h"
#include "store/Parameters.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {

FrmXUANXIANG::FrmXUANXIANG(FormHost& host) : Form(host, "FrmXUANXIANG", "选项", Unload::EndsProgram) {
  arrangeControls();
  Form_Load();
  connectEvents();
}

void FrmXUANXIANG::connectEvents() {
  on(CheckZWXTDZ, &QCheckBox::toggled, &FrmXUANXIANG::CheckZWXTDZ_Click);
  on(OptionBMFSSD, &QRadioButton::clicked, &FrmXUANXIANG::OptionBMFS_Click);
  on(OptionBMFSZD, &QRadioButton::clicked, &FrmXUANXIANG::OptionBMFS_Click);
  connectSubject(TxtGDZCDZKM, CmdGDZCDZKM);
  connectSubject(TxtLJZJDZKM, CmdLJZJDZKM);
  connectSubject(TxtQSGDZC, Command1);
  connectSubject(TxtQDLJZJ, Command2);
  on(CmdOK, &QPushButton::clicked, &FrmXUANXIANG::CmdOK_Click);
  on(CmdCancel, &QPushButton::clicked, &FrmXUANXIANG::CmdCancel_Click);
}

void FrmXUANXIANG::connectSubject(QLineEdit* field, QPushButton* pick) {
  on(field, &QLineEdit::editingFinished, [this, field] { leaveSubject(field); });
  on(pick, &QPushButton::clicked, [this, field] { pickSubjectInto(host(), *field); });
}

void FrmXUANXIANG::Form_Load() {
  loadAccount();
  loadDepreciation();
  loadLedger();
  loadCodes();
  CheckZWXTDZ_Click(CheckZWXTDZ->isChecked());
  OptionBMFS_Click();
}

void FrmXUANXIANG::loadTick(QCheckBox& box, const char* row) {
  if (const auto word = readParameter(data(), row)) box.setChecked(isYes(*word));
}

void FrmXUANXIANG::loadAccount() {
  const AccountHeader account = readAccountHeader(run().dbZKSystem, run().gstrAccountId);
  LblZTH->setText(toQt(run().gstrAccountId));
  LblZTMC->setText(toQt(account.name));
  LblSYDW->setText(toQt(account.unit));
  LblBWB->setText(toQt(account.currency));
  LblZGXM->setText(toQt(account.manager));
  LblQYYF->setText(toQt(monthOfDateRow(data(), "dStartDate")));
}

void FrmXUANXIANG::loadDepreciation() {
  if (const auto word = readParameter(data(), "bCalcDepr")) LblJTZJ->setText(isYes(*word) ? "是" : "否");
  for (const std::string& name : depreciationMethodNames(data())) ComboZJFF->addItem(toQt(name));
  if (const auto number = readParameter(data(), "sDeprMethodNum")) {
    ComboZJFF->setCurrentIndex(static_cast<int>(Val(*number)) - 1);
  }
  for (const char* months : {"1", "2", "3", "4", "6", "12"}) ComboHZFPZQ->addItem(months);
  if (const auto months = readParameter(data(), "iDeprSendPeriod")) {
    ComboHZFPZQ->setCurrentIndex(ComboHZFPZQ->findText(toQt(*months)));
  }
  Lblzjfpyf->setText(toQt(monthOfDateRow(data(), "dWritableDate")));
  loadTick(*CheckTZZJ, "bLastMonthMakeUpDepr");
}

void FrmXUANXIANG::loadLedger() {
  loadTick(*CheckZWXTDZ, "bAutoZW");
  loadTick(*CheckDZBP, "bAllowUnequality");
  if (CheckZWXTDZ->isChecked()) {
    TxtGDZCDZKM->setText(toQt(subjectFieldText(data(), "sFixedAssetsSubjectNum")));
    TxtLJZJDZKM->setText(toQt(subjectFieldText(data(), "sDeprTotalSubjectNum")));
  }
  TxtQSGDZC->setText(toQt(subjectFieldText(data(), "sDefaultAssetSubjectNum")));
  TxtQDLJZJ->setText(toQt(subjectFieldText(data(), "sDefaultDeprTotalSubjectNum")));
  loadTick(*CheckLJZD, "bSendToZWAfterChange");
  loadTick(*CheckJZQWC, "bWriteZWBeforeEnd");
}

void FrmXUANXIANG::loadCodes() {
  codingRule_.show(
      CodingRuleLengths::fromDigits(readParameter(data(), "sTypeNumType").value_or(std::string())));
  for (const char* way :
       {"类别编号＋序号", "部门编号＋序号", "类别编号＋部门编号＋序号", "部门编号＋类别编号＋序号"}) {
    ComboBMFS->addItem(way);
  }
  const bool byHand = readParameter(data(), "iCardNumAutoType") == "0";
  (byHand ? OptionBMFSSD : OptionBMFSZD)->setChecked(true);
  const auto way = readParameter(data(), "iCardNumType");
  ComboBMFS->setCurrentIndex(way ? static_cast<int>(Val(*way)) - 1 : -1);
  UpDownXHCD->setBuddy(TxtXHCD);
  if (const auto length = readParameter(data(), "iCardSequenceNumLength")) TxtXHCD->setText(toQt(*length));
  loadTick(*CheckLXZJ, "bAddSuccession");
  UpDownSCSX->setRange(0, 99);
  UpDownSCSX->setBuddy(TxtSCSX);
  if (const auto years = readParameter(data(), "iYearsToDel")) TxtSCSX->setText(toQt(*years));
}

void FrmXUANXIANG::CheckZWXTDZ_Click(bool ticked) {
  CheckDZBP->setEnabled(ticked);
  FrameDZKM->setEnabled(ticked);
}

void FrmXUANXIANG::OptionBMFS_Click() {
  const bool automatic = OptionBMFSZD->isChecked();
  ComboBMFS->setEnabled(automatic);
  TxtXHCD->setEnabled(automatic);
  UpDownXHCD->setEnabled(automatic);
  if (automatic && ComboBMFS->currentIndex() < 0) ComboBMFS->setCurrentIndex(0);
}

void FrmXUANXIANG::leaveSubject(QLineEdit* field) {
  if (!field->text().isEmpty() && !checkSubjectField(run(), *field)) field->setFocus();
}

AccountOptions FrmXUANXIANG::entered() const {
  AccountOptions options;
  options.reconcilesWithLedger = CheckZWXTDZ->isChecked();
  options.closesUnreconciled = CheckDZBP->isChecked();
  options.assetsSubject = fromQt(TxtGDZCDZKM->text());
  options.depreciationSubject = fromQt(TxtLJZJDZKM->text());
  options.vouchersAtOnce = CheckLJZD->isChecked();
  options.vouchersBeforeClosing = CheckJZQWC->isChecked();
  options.defaultAssetsSubject = fromQt(TxtQSGDZC->text());
  options.defaultDepreciationSubject = fromQt(TxtQDLJZJ->text());
  options.methodNumber = ComboZJFF->currentIndex() + 1;
  options.depreciatesRestInLastMonth = CheckTZZJ->isChecked();
  options.allocationCycle = fromQt(ComboHZFPZQ->currentText());
  options.yearsToDelete = fromQt(TxtSCSX->text());
  options.categoryCodingRule = codingRule_.rule().digits();
  options.cardNumbering = OptionBMFSSD->isChecked() ? 0 : ComboBMFS->currentIndex() + 1;
  options.cardSequenceLength = fromQt(TxtXHCD->text());
  options.addsInSuccession = CheckLXZJ->isChecked();
  return options;
}

void FrmXUANXIANG::CmdOK_Click() {
  storeOptions(data(), entered());
  throw EndProgram{};
}

}  // namespace zelkor
