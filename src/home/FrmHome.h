#pragma once

#include <array>
#include <functional>
#include <optional>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <string>

#include "home/AccountSetList.h"
#include "home/CheckMemory.h"
#include "home/Findings.h"
#include "home/frmChart.h"
#include "home/frmModule.h"
#include "home/frmStepText.h"
#include "home/frmWorker.h"
#include "home/ImportReading.h"
#include "home/OpenedSet.h"
#include "home/Reopening.h"
#include "startup/RecentReports.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/SaveDialog.h"

namespace zelkor {

/// The programs that the workbench starts.
struct HomePrograms {
  std::string module;  // the screens
  std::string tool;    // checks, backups, files
};

/// The workbench: where the month of an account set stands, what is next, what the assets come to. It writes
/// nothing into the books: each command starts the module, one at a time, and afterwards the books are read
/// again.
class FrmHome final : public Form {
 public:
  static constexpr std::size_t kSteps = 11;
  static constexpr std::size_t kFigures = 4;

  FrmHome(FormHost& host, AccountSetList& list, OpenedSet opened, HomePrograms programs);

  bool isScreen() const override { return true; }

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool enterPressed(QObject* control) override;

 private:
  QLabel* LblSet = make<QLabel>("LblSet");
  QLabel* LblUnit = make<QLabel>("LblUnit");
  QPushButton* CmdLogin = make<QPushButton>("CmdLogin");
  QLineEdit* TxtCommand = make<QLineEdit>("TxtCommand");
  QLabel* LblHeadline = make<QLabel>("LblHeadline");
  QPushButton* CmdNext = make<QPushButton>("CmdNext");
  std::array<QLabel*, kSteps> LblMark = makeArray<QLabel, kSteps>("LblMark");
  std::array<QLabel*, kSteps> LblStep = makeArray<QLabel, kSteps>("LblStep");
  std::array<frmStepText*, kSteps> LblCounts = makeArray<frmStepText, kSteps>("LblCounts");
  std::array<QLabel*, kSteps> LblLast = makeArray<QLabel, kSteps>("LblLast");
  std::array<QPushButton*, kSteps> CmdStep = makeArray<QPushButton, kSteps>("CmdStep");
  std::array<QToolButton*, kSteps> CmdMore = makeArray<QToolButton, kSteps>("CmdMore");
  std::array<QLabel*, kFigures> LblFigure = makeArray<QLabel, kFigures>("LblFigure");
  QLabel* LblCards = make<QLabel>("LblCards");
  frmChart* ChartDepartments = make<frmChart>("ChartDepartments");
  frmChart* ChartCategories = make<frmChart>("ChartCategories");
  frmChart* ChartMonths = make<frmChart>("ChartMonths");
  QPushButton* CmdPlan = make<QPushButton>("CmdPlan", "未来折旧(&L)…");
  QTabWidget* TabsRecent = make<QTabWidget>("TabsRecent");
  FlexGrid* GridCards = make<FlexGrid>("GridCards");
  FlexGrid* GridVouchers = make<FlexGrid>("GridVouchers");
  FlexGrid* GridReports = make<FlexGrid>("GridReports");
  QPushButton* CmdReport = make<QPushButton>("CmdReport", "再打开");
  QPushButton* CmdPdf = make<QPushButton>("CmdPdf", "另存 PDF…");
  QPushButton* CmdWorkbook = make<QPushButton>("CmdWorkbook", "另存 Excel…");
  QLabel* LblStatus = make<QLabel>("LblStatus");
  QPushButton* CmdDetail = make<QPushButton>("CmdDetail", "详情(&X)…");
  QMenuBar* menu_ = new QMenuBar(this);

  // FrmHomeLayout.cpp
  void arrangeControls();
  QLayout* head();
  QLayout* stepLines();
  QLayout* figureTiles();
  void arrangeRecent();
  void makeMenus();
  void makeStepsMenu();
  void makeFinder();

  void connectEvents();
  void openGuide();
  void openOther();
  void changeLogin();
  void logIn(OpenedSet opened);
  void showHead();

  void read();
  void readIn(BookReading (*routine)(const BooksPlace&));
  void takeFrom(const BooksPlace& place, const std::function<void()>& take);
  void takeReading(BookReading reading);
  void noteTrouble(const std::string& reason);
  void readingFailed(const std::string& reason);
  void showStatus();

  // FrmHomeMonth.cpp
  void showMonth();
  void showStep(std::size_t index, const MonthStep& step, bool isNext);
  void showMore(std::size_t index, const MonthStep& step);
  void showFigures(const BookFigures& figures);
  void showNothing();

  bool canStart() { return !module_.isRunning() && !restoring_; }
  /// Whether it is known how the books are, too.
  bool isReady() { return canStart() && reading_ && trouble_.empty(); }
  bool mayStart(const StepCommand& command) { return command.own.empty() ? canStart() : isReady(); }
  std::optional<OpenPeriod> otherMonth() const;
  void startNext();
  void startStep(std::size_t index);
  void enterInList();
  void startByName(const QString& caption);
  void tellOfCommand(const std::string& text);
  void start(const StepCommand& command);
  void startModule(const StepCommand& command);
  using Ended = std::function<void(const ChildEnd&)>;
  void startChild(const std::string& program, const std::string& caption,
                  const std::vector<std::string>& arguments, Ended afterwards);
  bool confirmReset();
  void ended(const std::string& caption, const ChildEnd& end);
  void showDetail();
  void lockCommands();

  // FrmHomeOwn.cpp
  void startOwn(std::string_view name);
  void importFile(ImportKind kind);
  void startTool(std::string_view command, const std::vector<std::string>& words, Ended afterwards);
  void check();
  void checked(const OpenedSet& of, const std::string& work, const ChildEnd& end);
  void showFindings(Findings findings);
  void backUp(const std::string& folder, const std::string& label, std::function<void()> then = {});
  void backUpElsewhere();
  bool offerBackup(const StepCommand& command);
  void reopen();
  void askReopening(const BooksPlace& of, const std::optional<Reopening>& reopening);
  void restore(const BooksPlace& of, const Reopening& reopening);
  void showPreview();
  void showPlan();

  // FrmHomeRecent.cpp
  void connectRecent();
  void showRecent(const RecentWork& recent);
  void showReports();
  void openRecent(std::int16_t runType);
  const RecentReport* currentReport() const;
  void openReport();
  void startReport(const std::string& name, const std::vector<std::string>& conditions);
  void connectCharts();
  std::string month() const;
  void saveReport(const FileForm& form);
  void lockReports();

  AccountSetList& list_;
  CheckMemory checks_;
  OpenedSet opened_;
  std::optional<BookReading> reading_;
  std::vector<RecentReport> reports_;  // as they are listed
  std::string trouble_;                // why the books could not be read
  std::string lastEnd_;                // what came of the last command
  std::string lastErrors_;             // all that it told, where it failed
  bool readAgain_ = false;
  bool focusedNext_ = false;  // the next step has had the focus that it gets at first
  bool restoring_ = false;    // nobody may have the books open
  QElapsedTimer sinceRead_;
  QTimer everyMinute_;
  HomePrograms programs_;
  frmModule module_;
  frmWorker worker_;
};

}  // namespace zelkor
