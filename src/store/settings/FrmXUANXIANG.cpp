#include "store/settings/FrmXUANXIANG.h"

#include <cmath>
#include <string_view>
#include <vector>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/engine/Foresight.h"
#include "store/settings/InitWizard.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

/// What the fields show.
constexpr std::string_view kRows[] = {"dStartDate",
                                      "bCalcDepr",
                                      "sDeprMethodNum",
                                      "iDeprSendPeriod",
                                      "dWritableDate",
                                      "bLastMonthMakeUpDepr",
                                      "bAutoZW",
                                      "bAllowUnequality",
                                      "bSendToZWAfterChange",
                                      "bWriteZWBeforeEnd",
                                      "sTypeNumType",
                                      "iCardNumAutoType",
                                      "iCardNumType",
                                      "iCardSequenceNumLength",
                                      "bAddSuccession",
                                      "iYearsToDel"};

std::vector<std::string> queriesOfFields() {
  std::vector<std::string> queries{kDepreciationMethods, "code"};
  for (const std::string_view row : kRows) queries.push_back(parameterQuery(row));
  return queries;
}

/// Chooses the entry with that number, from 1; none where the list does not offer it.
void chooseByNumber(QComboBox& list, const std::string& number) {
  const double place = Val(number);
  const bool isOffered = place >= 1 && place <= list.count() && place == std::floor(place);
  list.setCurrentIndex(isOffered ? static_cast<int>(place) - 1 : -1);
}

}  // namespace

FrmXUANXIANG::FrmXUANXIANG(FormHost& host) : FrmAccountSettings(host, "FrmXUANXIANG", "选项") {
  arrangeControls();
  connectEvents();
  Form_Load();
}

void FrmXUANXIANG::connectEvents() {
  connectSettings();
  connectSubject(TxtQSGDZC, Command1);
  connectSubject(TxtQDLJZJ, Command2);
  pairNumber(UpDownSCSX, TxtSCSX);
  on(CmdOK, &QPushButton::clicked, &FrmXUANXIANG::CmdOK_Click);
  on(CmdCancel, &QPushButton::clicked, &FrmXUANXIANG::CmdCancel_Click);
}

void FrmXUANXIANG::Form_Load() {
  const Foresight shown(data(), queriesOfFields());
  fillLists();
  loadAccount();
  loadDepreciation();
  loadLedger();
  loadCodes();
  CheckZWXTDZ_Click(CheckZWXTDZ->isChecked());
  enableNumbering();
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
  chooseByNumber(*ComboZJFF, readParameter(data(), "sDeprMethodNum").value_or(std::string()));
  if (const auto months = readParameter(data(), "iDeprSendPeriod")) {
    ComboHZFPZQ->setCurrentIndex(ComboHZFPZQ->findText(toQt(*months)));
  }
  Lblzjfpyf->setText(toQt(monthOfDateRow(data(), "dWritableDate")));
  loadTick(*CheckTZZJ, "bLastMonthMakeUpDepr");
}

void FrmXUANXIANG::loadLedger() {
  loadTick(*CheckZWXTDZ, "bAutoZW");
  loadTick(*CheckDZBP, "bAllowUnequality");
  loadSubjects();
  loadTick(*CheckLJZD, "bSendToZWAfterChange");
  loadTick(*CheckJZQWC, "bWriteZWBeforeEnd");
}

void FrmXUANXIANG::loadSubjects() {
  std::vector<std::string_view> rows{"sDefaultAssetSubjectNum", "sDefaultDeprTotalSubjectNum"};
  std::vector<QLineEdit*> fields{TxtQSGDZC, TxtQDLJZJ};
  if (CheckZWXTDZ->isChecked()) {
    rows.insert(rows.begin(), {"sFixedAssetsSubjectNum", "sDeprTotalSubjectNum"});
    fields.insert(fields.begin(), {TxtGDZCDZKM, TxtLJZJDZKM});
  }
  const std::vector<std::string> texts = subjectFieldTexts(data(), rows);
  for (std::size_t i = 0; i < fields.size(); ++i) fields[i]->setText(toQt(texts[i]));
}

void FrmXUANXIANG::loadCodes() {
  codingRule_.show(
      CodingRuleLengths::fromDigits(readParameter(data(), "sTypeNumType").value_or(std::string())));
  const bool byHand = readParameter(data(), "iCardNumAutoType") == "0";
  (byHand ? OptionBMFSSD : OptionBMFSZD)->setChecked(true);
  chooseByNumber(*ComboBMFS, readParameter(data(), "iCardNumType").value_or(std::string()));
  if (const auto length = readParameter(data(), "iCardSequenceNumLength")) TxtXHCD->setText(toQt(*length));
  loadTick(*CheckLXZJ, "bAddSuccession");
  if (const auto years = readParameter(data(), "iYearsToDel")) TxtSCSX->setText(toQt(*years));
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
  if (ComboZJFF->currentIndex() >= 0) options.methodNumber = ComboZJFF->currentIndex() + 1;
  options.depreciatesRestInLastMonth = CheckTZZJ->isChecked();
  if (ComboHZFPZQ->currentIndex() >= 0) options.allocationCycle = fromQt(ComboHZFPZQ->currentText());
  options.yearsToDelete = fromQt(TxtSCSX->text());
  options.categoryCodingRule = codingRule().digits();
  if (OptionBMFSSD->isChecked() || ComboBMFS->currentIndex() >= 0) options.cardNumbering = cardNumbering();
  options.cardSequenceLength = fromQt(TxtXHCD->text());
  options.addsInSuccession = CheckLXZJ->isChecked();
  return options;
}

void FrmXUANXIANG::CmdOK_Click() {
  storeOptions(data(), entered());
  throw EndProgram{};
}

}  // namespace zelkor
