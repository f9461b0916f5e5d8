#include "reports/FrmBBTJ.h"

#include <optional>

#include "archives/FrmFATypes.h"
#include "reports/ConditionTexts.h"
#include "reports/FrmBBXS.h"
#include "startup/RecentReports.h"
#include "ui/BusyCursor.h"

namespace zelkor {
namespace {

template <typename Texts>
void fill(QComboBox* list, const Texts& texts) {
  for (const auto& text : texts) list->addItem(toQt(text));
}

std::string textOf(const QComboBox* list) {
  return fromQt(list->currentText());
}

}  // namespace

FrmBBTJ::FrmBBTJ(FormHost& host, const ReportKind& kind, ReportView& view)
    : Form(host, "FrmBBTJ", "条件", Unload::Plain), kind_(kind), view_(view) {
  setWindowTitle("条件 - [" + toQt(kind.name) + "]");
  dressControls();
  arrangePages();
  fillLists();
  bringToFront(numberOf(kind.page));
  connectEvents();
}

void FrmBBTJ::fillLists() {
  for (QComboBox* list : Combo1) fill(list, chosen_.months);
  for (QComboBox* list : Combo2) fill(list, kOfferedLevels);
  fill(ComboBMJC, kOfferedDepartmentLevels);
  fill(ComboLBJC, kOfferedTypeLevels);
  Option1->setChecked(true);
  Option3.front()->setChecked(true);
}

void FrmBBTJ::connectEvents() {
  for (QComboBox* list : Combo2) on(list, &QComboBox::currentIndexChanged, &FrmBBTJ::Combo2_Click);
  for (std::size_t i = 0; i < Option3.size(); ++i) {
    on(Option3[i], &QRadioButton::clicked, [this, i] { Option3_Click(i); });
  }
  for (QPushButton* button : CmdCXBMMC) on(button, &QPushButton::clicked, &FrmBBTJ::CmdCXBMMC_Click);
  for (QPushButton* button : CmdCXLBMC) on(button, &QPushButton::clicked, &FrmBBTJ::CmdCXLBMC_Click);
  for (QPushButton* button : CmdYes) on(button, &QPushButton::clicked, &FrmBBTJ::CmdYes_Click);
  for (QPushButton* button : CmdCancel) on(button, &QPushButton::clicked, [this] { close(); });
}

/// The first pair alone is kept in order, whichever list was clicked.
void FrmBBTJ::Combo2_Click() {
  LevelRange departments{textOf(Combo2[0]), textOf(Combo2[1])};
  departments.keepOrder();
  Combo2[0]->setCurrentText(toQt(departments.from));
}

void FrmBBTJ::Option3_Click(std::size_t chosen) {
  ComboBMJC->setEnabled(chosen != 2);
  ComboLBJC->setEnabled(chosen != 1);
}

void FrmBBTJ::CmdCXBMMC_Click() {
  pick(ArchiveKind::Departments, chosen_.department);
}

void FrmBBTJ::CmdCXLBMC_Click() {
  pick(ArchiveKind::AssetTypes, chosen_.type);
}

/// Leaving the picker without a choice leaves the conditions too.
void FrmBBTJ::pick(ArchiveKind archive, ChosenEntry& chosen) {
  const auto picked = pickFromArchive(host(), archive);
  if (!picked) {
    close();
    return;
  }
  if (picked->name == "-1") return;
  chosen = chosenEntry(picked->assetTypeID, picked->name);
  showChosen();
}

/// The labels of the pages of the revaluation and of the assets in service stay empty.
void FrmBBTJ::showChosen() {
  for (QLabel* label : std::span(LblBMMC).subspan(1)) label->setText(toQt(chosen_.department.name));
  for (QLabel* label : std::span(LblLBMC).subspan(2)) label->setText(toQt(chosen_.type.name));
}

ReportConditions FrmBBTJ::conditions() const {
  ReportConditions all = chosen_;
  for (std::size_t page = 0; page < kPageCount; ++page) {
    const Lists periods = periodLists(page);
    all.periods[static_cast<ConditionPage>(page)] = {textOf(periods.front()), textOf(periods.back())};
    if (const auto levels = kConditionPages[page].levels) {
      const Lists lists = levelLists(page);
      all.*levels = {textOf(lists.front()), textOf(lists.back())};
    }
  }
  all.compositionLevel = Option1->isChecked() ? CompositionLevel::First : CompositionLevel::Detail;
  if (Option3[1]->isChecked()) all.statisticsLayout = StatisticsLayout::ByDepartment;
  if (Option3[2]->isChecked()) all.statisticsLayout = StatisticsLayout::ByType;
  all.departmentLevel = textOf(ComboBMJC);
  all.typeLevel = textOf(ComboLBJC);
  return all;
}

ReportOutcome FrmBBTJ::compute() {
  std::optional<BusyCursor> busy;
  if (kind_.build) busy.emplace();
  return runReport(run(), kind_, conditions(), view_);
}

void FrmBBTJ::CmdYes_Click() {
  if (compute() == ReportOutcome::Computed) {
    remember();
    showReportView(host(), view_);
  }
  close();
}

/// For whoever wants to see it again; a program that stands nowhere is nobody's.
void FrmBBTJ::remember() {
  if (run().programFolder.empty()) return;
  RecentReports(RecentReports::usualFile())
      .remember({run().gstrZtFile, run().gstrAccountId, std::string(kind_.name),
                 conditionTexts(kind_, conditions()), run().clock.now()});
}

}  // namespace zelkor
