#include "store/settings/FrmAccountSettings.h"

#include <QBoxLayout>

#include "store/settings/InitWizard.h"
#include "ui/Focus.h"
#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kMostNumber = 9999;
constexpr int kDigits = 4;

}  // namespace

FrmAccountSettings::FrmAccountSettings(FormHost& host, const char* name, const char* caption)
    : Form(host, name, caption, Unload::EndsProgram) {}

QLayout* FrmAccountSettings::cycleField() {
  return row({wide(ComboHZFPZQ), new QLabel("个月")});
}

QGroupBox* FrmAccountSettings::numberFrame() {
  return frame("固定资产编码方式",
               column({row({OptionBMFSSD, OptionBMFSZD, wide(ComboBMFS)}),
                       row({captioned("序号长度：", spinnerPair(TxtXHCD, UpDownXHCD)), stretch()})}));
}

QGroupBox* FrmAccountSettings::subjectFrame() {
  FrameDZKM = frame("对账科目",
                    fields({{"固定资产对账科目：", row({wide(TxtGDZCDZKM), CmdGDZCDZKM})},
                            {"累计折旧对账科目：", row({wide(TxtLJZJDZKM), CmdLJZJDZKM})}}),
                    "FrameDZKM");
  return FrameDZKM;
}

void FrmAccountSettings::fillLists() {
  for (const std::string& name : depreciationMethodNames(data())) ComboZJFF->addItem(toQt(name));
  for (const char* months : {"1", "2", "3", "4", "6", "12"}) ComboHZFPZQ->addItem(months);
  for (const char* way :
       {"类别编号＋序号", "部门编号＋序号", "类别编号＋部门编号＋序号", "部门编号＋类别编号＋序号"}) {
    ComboBMFS->addItem(way);
  }
  for (QComboBox* list : {ComboZJFF, ComboHZFPZQ, ComboBMFS}) list->setCurrentIndex(-1);
}

void FrmAccountSettings::connectSettings() {
  for (QLineEdit* box : TxtBMCD) acceptDigitsOnly(box);
  pairNumber(UpDownXHCD, TxtXHCD);
  on(CheckZWXTDZ, &QCheckBox::toggled, &FrmAccountSettings::CheckZWXTDZ_Click);
  on(OptionBMFSSD, &QRadioButton::clicked, &FrmAccountSettings::OptionBMFS_Click);
  on(OptionBMFSZD, &QRadioButton::clicked, &FrmAccountSettings::OptionBMFS_Click);
  connectSubject(TxtGDZCDZKM, CmdGDZCDZKM);
  connectSubject(TxtLJZJDZKM, CmdLJZJDZKM);
}

/// An empty field is left alone.
void FrmAccountSettings::connectSubject(QLineEdit* field, QPushButton* pick) {
  dressPick(pick, field);
  onLeaving(field, [this, field] {
    if (refusing_ || field->text().isEmpty() || checkSubjectField(run(), *field)) return;
    refusing_ = true;  // the next field, which has got the focus meanwhile, is not left by a person
    returnTo(*field);
    refusing_ = false;
  });
  on(pick, &QPushButton::clicked, [this, field] { pickSubjectInto(host(), *field); });
}

void FrmAccountSettings::pairNumber(UpDown* spinner, QLineEdit* box) {
  numberBox(box);
  acceptDigitsOnly(box);
  box->setMaxLength(kDigits);
  spinner->setRange(0, kMostNumber);
  spinner->setBuddy(box);
}

void FrmAccountSettings::CheckZWXTDZ_Click(bool ticked) {
  CheckDZBP->setEnabled(ticked);
  FrameDZKM->setEnabled(ticked);
}

void FrmAccountSettings::enableNumbering() {
  const bool automatic = OptionBMFSZD->isChecked();
  ComboBMFS->setEnabled(automatic);
  TxtXHCD->setEnabled(automatic);
  UpDownXHCD->setEnabled(automatic);
}

void FrmAccountSettings::OptionBMFS_Click() {
  enableNumbering();
  if (OptionBMFSZD->isChecked() && ComboBMFS->currentIndex() < 0) ComboBMFS->setCurrentIndex(0);
}

}  // namespace zelkor
