#include "home/FrmHome.h"
#include "home/RecentGrids.h"
#include "ui/Layout.h"

// What was done last in the books, below the steps.
namespace zelkor {
namespace {

constexpr std::int16_t kCards = 7;
constexpr std::int16_t kVouchers = 12;
constexpr std::int16_t kReports = 25;
constexpr std::string_view kLastReport = "last-report";

}  // namespace

void FrmHome::connectRecent() {
  on(GridCards, &FlexGrid::rowOpened, [this] { openRecent(kCards); });
  on(GridVouchers, &FlexGrid::rowOpened, [this] { openRecent(kVouchers); });
  on(GridReports, &FlexGrid::rowOpened, &FrmHome::openReport);
  on(GridReports, &FlexGrid::rowSelected, &FrmHome::lockReports);
  on(CmdReport, &QPushButton::clicked, &FrmHome::openReport);
  on(CmdPdf, &QPushButton::clicked, [this] { saveReport({"pdf", "PDF 文件 (*.pdf)"}); });
  on(CmdWorkbook, &QPushButton::clicked, [this] { saveReport({"xlsx", "工作簿 (*.xlsx)"}); });
  showReports();
}

void FrmHome::showRecent(const RecentWork& recent) {
  GridCards->setGrid(gridOf(recent.cards));
  GridVouchers->setGrid(gridOf(recent.vouchers));
  for (FlexGrid* grid : {GridCards, GridVouchers}) grid->widenColumns();
  showReports();
}

void FrmHome::showReports() {
  reports_ = RecentReports(RecentReports::usualFile()).of(opened_.set.dataFile, opened_.set.account);
  const auto row = GridReports->currentGridRow();
  GridReports->setGrid(gridOf(reports_));
  GridReports->widenColumns();
  if (!reports_.empty()) GridReports->selectGridRow(row && *row <= reports_.size() ? *row : 1);
  lockReports();
}

void FrmHome::openRecent(std::int16_t runType) {
  if (reading_ && trouble_.empty()) start({.runType = runType});
}

const RecentReport* FrmHome::currentReport() const {
  const auto row = GridReports->currentGridRow();
  return row && *row > 0 && *row <= reports_.size() ? &reports_[*row - 1] : nullptr;
}

/// It becomes the last one, which the module shows.
void FrmHome::openReport() {
  const RecentReport* current = currentReport();
  if (current == nullptr || !CmdReport->isEnabled()) return;
  RecentReport again = *current;
  again.time = run().clock.now();
  RecentReports(RecentReports::usualFile()).remember(again);
  start({.runType = 0, .screen = kLastReport});
}

void FrmHome::saveReport(const FileForm& form) {
  const RecentReport* current = currentReport();
  if (current == nullptr) return;
  const RecentReport report = *current;
  const auto file = askWhereToSave(run().dialogs, *this, toQt(report.name), {&form, 1});
  if (!file || !canStart()) return;
  std::vector<std::string> words{"report", argumentString(kReports, opened_), report.name};
  for (const std::string& condition : report.conditions)
    words.insert(words.end(), {"--condition", condition});
  words.insert(words.end(), {"--format", form.format, "--money", "--out", fromQt(file->name), "--force"});
  startChild(programs_.tool, "另存报表", words, [this, name = fromQt(file->name)](const ChildEnd& end) {
    ended("另存报表", end);
    if (end.failed()) return;
    lastEnd_ = "已保存到“" + name + "”";
    showStatus();
  });
}

void FrmHome::lockReports() {
  const bool possible = currentReport() != nullptr && canStart() && reading_ && trouble_.empty();
  for (QPushButton* button : {CmdReport, CmdPdf, CmdWorkbook}) button->setEnabled(possible);
}

}  // namespace zelkor
