#include "archives/FrmFLBMB.h"

#include <algorithm>
#include <QAction>
#include <QHeaderView>
#include <QSignalBlocker>

#include "archives/AssetTypeList.h"
#include "archives/FrmZJFFCZ.h"
#include "base/Text.h"
#include "ui/Focus.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

constexpr const char* kRootCode = "&";
constexpr const char* kCardLayoutName = "通用样式";
constexpr int kDetailTab = 1;
constexpr int kCodePartLimit = 10;  // the longest code
constexpr std::size_t kCodeColumn = 0;

}  // namespace

FrmFLBMB::FrmFLBMB(FormHost& host) : Form(host, "FrmFLBMB", "类别编码表", Unload::EndsProgram) {
  arrangeControls();
  connectEvents();
  reload();
}

void FrmFLBMB::connectEvents() {
  on(TvLeft, &QTreeWidget::currentItemChanged, &FrmFLBMB::TvLeft_NodeClick);
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  on(MSFlexGrid1, &FlexGrid::rowSelected, &FrmFLBMB::MSFlexGrid1_RowColChange);
  on(MSFlexGrid1, &FlexGrid::rowOpened, &FrmFLBMB::MSFlexGrid1_DblClick);
  onLeaving(TxtZJFF, &FrmFLBMB::TxtZJFF_Validate);
  on(CmdZJFF, &QPushButton::clicked, &FrmFLBMB::CmdZJFF_Click);
}

/// Reads everything again; the entry that was selected stays selected if it is still there.
void FrmFLBMB::reload() {
  const std::string selected = treeCode_.empty() ? kRootCode : treeCode_;
  {
    const QSignalBlocker quiet(TvLeft);
    loadTree(*TvLeft, assetTypeTree(data()));
    TvLeft->expandAll();
    QTreeWidgetItem* item = findByKey(*TvLeft, "D" + toQt(selected));
    TvLeft->setCurrentItem(item ? item : TvLeft->topLevelItem(0));
  }
  enterMode(Mode::Browse);
  TvLeft_NodeClick();
}

void FrmFLBMB::TvLeft_NodeClick() {
  const QTreeWidgetItem* item = TvLeft->currentItem();
  const QString code = item ? tagOf(*item) : QString();
  treeCode_ = code.isEmpty() ? kRootCode : fromQt(code);
  fillList();
  showDetails(treeCode_);
}

void FrmFLBMB::fillList() {
  const QSignalBlocker quiet(MSFlexGrid1);
  TextGrid list = assetTypeList(data(), treeCode_, run().gstrDeprStates);
  for (const std::size_t amount : {2, 3}) {
    if (amount < list.columns()) list.setAlignment(amount, Align::Right);
  }
  MSFlexGrid1->setGrid(std::move(list));
  MSFlexGrid1->fitColumns();
}

void FrmFLBMB::MSFlexGrid1_RowColChange(std::size_t row) {
  showDetails(Trim(MSFlexGrid1->grid().text(row, kCodeColumn)));
}

void FrmFLBMB::MSFlexGrid1_DblClick() {
  SSTab1->setCurrentIndex(kDetailTab);
}

/// What was typed before cannot be undone back into them.
void FrmFLBMB::clearDetails() {
  for (QLineEdit* field : {TxtLBMC, TxtSYNX, TxtJCZL, TxtJLDW, TxtZJFF, TxtKPYS}) field->setText({});
  ComboJTSX->setCurrentIndex(0);
}

/// Shows a category; for the root, or one that is gone, empty fields.
void FrmFLBMB::showDetails(const std::string& code) {
  const auto found = code == kRootCode ? std::nullopt : readAssetType(data(), code);
  current_ = found.value_or(AssetTypeDetail{});
  clearDetails();
  showParts(current_.entry.parts, 0);
  if (found) {
    TxtLBMC->setText(toQt(current_.entry.name));
    TxtSYNX->setText(toQt(current_.entry.lifeYears));
    TxtJCZL->setText(toQt(current_.entry.residualRatePercent));
    TxtJLDW->setText(toQt(current_.entry.unit));
    ComboJTSX->setCurrentIndex(current_.entry.depreciationRule - 1);
    TxtZJFF->setText(toQt(current_.entry.methodName));
    TxtKPYS->setText(kCardLayoutName);
  }
  enableCommands();
}

/// Shows a code's parts and lets the one of `openLevel` (from 1; 0 for none) be typed into, at the length
/// that the coding rule gives it. A part from the time of another rule is not cut to it.
void FrmFLBMB::showParts(const AssetTypeCodeParts& parts, int openLevel) {
  const AssetTypeCodingRule rule = readAssetTypeCodingRule(data());
  for (std::size_t i = 0; i < kAssetTypeLevels; ++i) {
    const QString part = toQt(parts[i]);
    const int limit = std::max(rule.lengths[i], static_cast<int>(part.size()));
    TxtBM[i]->setMaxLength(browsing() ? kCodePartLimit : limit);
    TxtBM[i]->setText(part);
    TxtBM[i]->setReadOnly(static_cast<int>(i) + 1 != openLevel);
  }
}

bool FrmFLBMB::mayAdd() {
  return browsing() && (!onRow() || current_.level < readAssetTypeCodingRule(data()).deepestLevel());
}

void FrmFLBMB::enterMode(Mode mode) {
  mode_ = mode;
  TvLeft->setEnabled(browsing());
  MSFlexGrid1->setEnabled(browsing());
  for (QLineEdit* field : {TxtLBMC, TxtSYNX, TxtJCZL, TxtJLDW, TxtZJFF}) field->setReadOnly(browsing());
  ComboJTSX->setEnabled(editing());
  CmdZJFF->setEnabled(editing());
  if (editing()) SSTab1->setCurrentIndex(kDetailTab);
  enableCommands();
}

void FrmFLBMB::add() {
  const AssetTypeParent parent{current_.code, current_.entry.parts, current_.level};
  const NewAssetTypeCode proposal = proposeAssetTypeCode(data(), parent);
  newLevel_ = proposal.level;
  enterMode(Mode::Add);
  clearDetails();
  showParts(proposal.parts, newLevel_);
  TxtZJFF->setText(toQt(mainDepreciationMethodName(data())));
  TxtKPYS->setText(kCardLayoutName);
  TxtLBMC->setFocus();
}

void FrmFLBMB::edit() {
  enterMode(Mode::Edit);
  showParts(current_.entry.parts, current_.level);
  TxtLBMC->setFocus();
}

AssetTypeEntry FrmFLBMB::entered() const {
  AssetTypeEntry entry;
  for (std::size_t i = 0; i < kAssetTypeLevels; ++i) entry.parts[i] = fromQt(TxtBM[i]->text());
  entry.name = fromQt(TxtLBMC->text());
  entry.lifeYears = fromQt(TxtSYNX->text());
  entry.residualRatePercent = fromQt(TxtJCZL->text());
  entry.unit = fromQt(TxtJLDW->text());
  entry.depreciationRule = ComboJTSX->currentIndex() + 1;
  entry.methodName = fromQt(TxtZJFF->text());
  return entry;
}

void FrmFLBMB::save() {
  // A command of the toolbar does not take the focus: a field that is being typed into has not been left.
  if (TxtZJFF->hasFocus() && !TxtZJFF_Validate()) return;
  if (mode_ == Mode::Add) {
    addAssetType(data(), entered(), newLevel_);
  } else if (updateAssetType(data(), entered(), current_.code) == AssetTypeSaved::CodeTaken) {
    run().dialogs.MsgBox(std::string(kAssetTypeCodeTakenText), Buttons::Ok, Icon::Exclamation,
                         std::string(kAssetTypeBoxTitle));
    return returnTo(*TxtBM[static_cast<std::size_t>(current_.level) - 1]);
  }
  reload();
  TvLeft->setFocus();
}

void FrmFLBMB::cancel() {
  const Answer answer = run().dialogs.MsgBox(std::string(kAssetTypeCancelQuestion), Buttons::YesNo,
                                             Icon::Question, std::string(kAssetTypeBoxTitle));
  if (answer == Answer::Yes) reload();
}

void FrmFLBMB::remove() {
  const Answer answer = run().dialogs.MsgBox(std::string(kAssetTypeDeleteQuestion), Buttons::YesNo,
                                             Icon::Question, std::string(kAssetTypeBoxTitle));
  if (answer != Answer::Yes) return;
  deleteAssetType(data(), current_.code);
  reload();
}

/// True when the method in the field is one of the archive's.
bool FrmFLBMB::TxtZJFF_Validate() {
  if (browsing() || !depreciationMethodID(data(), fromQt(TxtZJFF->text())).empty()) return true;
  run().dialogs.MsgBox(std::string(kAssetTypeMethodUnknownText), Buttons::Ok, Icon::Exclamation,
                       std::string(kAssetTypeBoxTitle));
  returnTo(*TxtZJFF);
  return false;
}

void FrmFLBMB::CmdZJFF_Click() {
  FrmZJFFCZ picker(host());
  picker.setpZJFF(fromQt(TxtZJFF->text()));
  host().showModal(picker);
  if (picker.pZJFF().empty()) return;
  TxtZJFF->setText(toQt(picker.pZJFF()));
  TxtZJFF_Validate();
}

}  // namespace zelkor
