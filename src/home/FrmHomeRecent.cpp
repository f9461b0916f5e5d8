#include "base/Format.h"
#include "home/FrmHome.h"
#include "home/RecentGrids.h"
#include "ui/Layout.h"

// What was done last in the books, below the steps.
namespace zelkor {
namespace {

constexpr std::int16_t kCards = 7;
constexpr std::int16_t kVouchers = 12;
constexpr std::int16_t kReports = 25;
constexpr StepCommand kLastReport{.screen = "last-report"};
constexpr StepCommand kAllocation{.runType = 9};
constexpr const char* kByCategory = "价值结构分析表";
constexpr const char* kByMonth = "固定资产总账";

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
  if (isReady()) start({.runType = runType});
}

const RecentReport* FrmHome::currentReport() const {
  const auto row = GridReports->currentGridRow();
  return row && *row > 0 && *row <= reports_.size() ? &reports_[*row - 1] : nullptr;
}

void FrmHome::openReport() {
  const RecentReport* current = currentReport();
  if (current == nullptr) return;
  const RecentReport again = *current;
  startReport(again.name, again.conditions);
}

/// It becomes the last one, which the module shows.
void FrmHome::startReport(const std::string& name, const std::vector<std::string>& conditions) {
  if (!isReady()) return;
  RecentReports recent(RecentReports::usualFile());
  if (!recent.remember({opened_.set.dataFile, opened_.set.account, name, conditions, run().clock.now()})) {
    lastEnd_ = "⚠ 不能直接打开“" + name + "”：写不了 " + RecentReports::usualFile().string() +
               "。请从“账簿与报表”打开。";
    return showStatus();
  }
  startChild(programs_.module, name, argumentsFor(kLastReport, opened_),
             [this, name](const ChildEnd& end) { ended(name, end); });
}

/// Each opens the report that tells what it shows.
void FrmHome::connectCharts() {
  const auto connect = [this](frmChart* chart, const std::string& report, const std::function<void()>& open) {
    chart->saveThrough(host());
    chart->onOpened(toQt(report), [this, open] { host().dispatch(open); });
  };
  connect(ChartDepartments, std::string(captionOf(kAllocation)), [this] {
    if (isReady()) start(kAllocation);
  });
  connect(ChartCategories, kByCategory, [this] { startReport(kByCategory, {"period=" + month()}); });
  connect(ChartMonths, kByMonth, [this] {
    startReport(kByMonth, {"period=" + Format(opened_.date, "yyyy") + ".01", "period-to=" + month()});
  });
}

/// As the reports' conditions have it.
std::string FrmHome::month() const {
  return Format(opened_.date, "yyyy.mm");
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
  const bool possible = currentReport() != nullptr && isReady();
  for (QPushButton* button : {CmdReport, CmdPdf, CmdWorkbook}) button->setEnabled(possible);
}

}  // namespace zelkor
