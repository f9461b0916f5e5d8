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
#include <QTimer>
#include <QToolButton>
#include <string>

#include "home/AccountSetList.h"
#include "home/frmChart.h"
#include "home/frmModule.h"
#include "home/frmWorker.h"
#include "home/OpenedSet.h"
#include "ui/Form.h"

namespace zelkor {

/// The workbench: where the month of an account set stands, what is next, what the assets come to. It writes
/// nothing into the books: each command starts the module, one at a time, and afterwards the books are read
/// again.
class FrmHome final : public Form {
 public:
  static constexpr std::size_t kSteps = 9;
  static constexpr std::size_t kFigures = 4;

  /// `module` is the program that the commands start.
  FrmHome(FormHost& host, AccountSetList& list, OpenedSet opened, const std::string& module);

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
  std::array<QLabel*, kSteps> LblCounts = makeArray<QLabel, kSteps>("LblCounts");
  std::array<QLabel*, kSteps> LblLast = makeArray<QLabel, kSteps>("LblLast");
  std::array<QPushButton*, kSteps> CmdStep = makeArray<QPushButton, kSteps>("CmdStep");
  std::array<QToolButton*, kSteps> CmdMore = makeArray<QToolButton, kSteps>("CmdMore");
  std::array<QLabel*, kFigures> LblFigure = makeArray<QLabel, kFigures>("LblFigure");
  QLabel* LblCards = make<QLabel>("LblCards");
  frmChart* ChartDepartments = make<frmChart>("ChartDepartments");
  frmChart* ChartCategories = make<frmChart>("ChartCategories");
  frmChart* ChartMonths = make<frmChart>("ChartMonths");
  QLabel* LblStatus = make<QLabel>("LblStatus");
  QPushButton* CmdDetail = make<QPushButton>("CmdDetail", "详情(&X)…");
  QMenuBar* menu_ = new QMenuBar(this);

  // FrmHomeLayout.cpp
  void arrangeControls();
  QLayout* head();
  QLayout* stepLines();
  QLayout* figureTiles();
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
  void takeReading(const BookReading& reading);
  void readingFailed(const std::string& reason);
  void showMonth();
  void showStep(std::size_t index, const MonthStep& step, bool isNext);
  void showFigures(const BookFigures& figures);
  void showStatus();

  bool canStart() { return !module_.isRunning(); }
  void startNext();
  void startStep(std::size_t index);
  void startByName(const QString& caption);
  void start(const StepCommand& command);
  bool confirmReset();
  void ended(const std::string& caption, const ChildEnd& end);
  void showDetail();
  void lockCommands();

  AccountSetList& list_;
  OpenedSet opened_;
  std::optional<BookReading> reading_;
  std::string trouble_;     // why the books could not be read
  std::string lastEnd_;     // what came of the last command
  std::string lastErrors_;  // all that it told, where it failed
  bool readAgain_ = false;
  QElapsedTimer sinceRead_;
  QTimer everyMinute_;
  frmModule module_;
  frmWorker worker_;
};

}  // namespace zelkor
