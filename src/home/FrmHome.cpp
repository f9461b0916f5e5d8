#include "home/FrmHome.h"

#include <chrono>
#include <QAbstractItemView>
#include <QCloseEvent>
#include <QCompleter>
#include <QStyle>
#include <utility>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "home/AccountTitle.h"
#include "home/FrmAccountSets.h"
#include "home/FrmConfirmName.h"
#include "home/FrmEndDetail.h"
#include "home/FrmLogin.h"
#include "home/OwnCommands.h"
#include "store/engine/Statement.h"
#include "ui/Guide.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr std::chrono::minutes kBetweenReadings{1};
constexpr qint64 kFreshMilliseconds = 1500;  // a reading that is not older is not done again by a look
constexpr std::int16_t kClosing = 20;
constexpr std::int16_t kReset = 23;
constexpr int kMonths = 12;

}  // namespace

FrmHome::FrmHome(FormHost& host, AccountSetList& list, OpenedSet opened, HomePrograms programs)
    : Form(host, "FrmHome", kTitle, Unload::Plain),
      list_(list),
      checks_(list.file().parent_path() / CheckMemory::usualFile().filename()),
      opened_(std::move(opened)),
      programs_(std::move(programs)) {
  arrangeControls();
  connectEvents();
  everyMinute_.start(kBetweenReadings);
  showHead();
  showStatus();
  lockCommands();
  read();
}

void FrmHome::connectEvents() {
  on(CmdLogin, &QPushButton::clicked, &FrmHome::changeLogin);
  on(CmdNext, &QPushButton::clicked, &FrmHome::startNext);
  on(CmdDetail, &QPushButton::clicked, &FrmHome::showDetail);
  on(&everyMinute_, &QTimer::timeout, &FrmHome::read);
  for (std::size_t i = 0; i < kSteps; ++i) on(CmdStep[i], &QPushButton::clicked, [this, i] { startStep(i); });
  connectCharts();
  on(CmdPlan, &QPushButton::clicked, [this] { start(StepCommand::ofOwn(own::kPlan)); });
  connectRecent();
  on(TxtCommand->completer(), qOverload<const QString&>(&QCompleter::activated), &FrmHome::startByName);
  on(TxtCommand, &QLineEdit::returnPressed, &FrmHome::enterInList);
}

bool FrmHome::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && sinceRead_.isValid() &&
      sinceRead_.elapsed() > kFreshMilliseconds)
    host().dispatch([this] { read(); });
  return Form::event(event);
}

// The command that was started works in these books: they are not left while it does.
void FrmHome::closeEvent(QCloseEvent* event) {
  if (!module_.isRunning()) return Form::closeEvent(event);
  event->ignore();
  host().dispatch([this] {
    run().dialogs.MsgBox("“" + module_.caption() + "”还开着，请先关闭它。", Buttons::Ok, Icon::Information,
                         kTitle);
  });
}

bool FrmHome::enterPressed(QObject* control) {
  if (control != TxtCommand) return false;
  startByName(TxtCommand->text());
  return true;
}

void FrmHome::openGuide() {
  showGuide(run(), *this);
}

void FrmHome::openOther() {
  FrmAccountSets sets(host(), list_);
  host().showModal(sets);
  if (sets.opened()) logIn(*sets.opened());
}

void FrmHome::changeLogin() {
  const auto open = reading_ ? reading_->facts.open : std::nullopt;
  if (auto agreed = askLogin(host(), opened_, open)) logIn(std::move(*agreed));
}

void FrmHome::logIn(OpenedSet opened) {
  opened_ = std::move(opened);
  reading_.reset();
  focusedNext_ = false;
  lastEnd_.clear();
  lastErrors_.clear();
  trouble_.clear();
  showHead();
  showStatus();
  showNothing();
  showMonth();
  read();
}

void FrmHome::showHead() {
  LblSet->setText(toQt(opened_.set.account + " " + opened_.set.name));
  LblUnit->setText(toQt(opened_.set.unit));
  CmdLogin->setText(toQt(opened_.user) + "　" + toQt(Format(opened_.date, "yyyy-mm-dd")) + "　…");
  CmdLogin->setToolTip("操作员与操作日期（Ctrl+D）");
  std::string title =
      sql(kTitle, "　", opened_.set.name, "　", monthText(opened_.date.year(), opened_.date.month()));
  if (reading_ && reading_->month.next)
    title += sql("　下一步：", captionOf(reading_->month.steps[*reading_->month.next].kind));
  setWindowTitle(toQt(title));
}

/// The steps of books that are seen for the first time come first.
void FrmHome::read() {
  if (restoring_ || worker_.isBusy()) {
    readAgain_ = true;
    return;
  }
  readAgain_ = false;
  sinceRead_.start();
  if (!reading_) readIn(readSteps);
  readIn(readBooks);
}

void FrmHome::readIn(BookReading (*routine)(const BooksPlace&)) {
  worker_.start([this, routine, place = opened_.place()]() -> frmWorker::Result {
    try {
      return [this, place, reading = routine(place)] { takeFrom(place, [&] { takeReading(reading); }); };
    } catch (const std::exception& error) {
      return [this, place, reason = std::string(error.what())] {
        takeFrom(place, [&] { readingFailed(reason); });
      };
    }
  });
}

/// Takes what was found out beside the windows; not if other books are open by now.
void FrmHome::takeFrom(const BooksPlace& place, const std::function<void()>& take) {
  host().dispatch([&] {
    if (place == opened_.place()) take();
    if (readAgain_ && !worker_.isBusy()) read();
  });
}

void FrmHome::takeReading(BookReading reading) {
  noteTrouble("");
  takeCheck(reading, checks_.lastOf(opened_.set.dataFile, opened_.set.account, opened_.date));
  reading_ = std::move(reading);
  if (!reading_->header.name.empty()) {
    opened_.set.name = reading_->header.name;
    opened_.set.unit = reading_->header.unit;
  }
  showHead();
  showMonth();
  if (reading_->figures) showFigures(*reading_->figures);
  if (reading_->figures) showRecent(reading_->recent);
  const bool goesOn = CmdNext->isEnabled() && !CmdNext->isHidden();
  if (!focusedNext_ && goesOn) CmdNext->setFocus();
  focusedNext_ = focusedNext_ || goesOn;
}

/// What was seen before stays in sight; nothing can be started from it.
void FrmHome::readingFailed(const std::string& reason) {
  noteTrouble(reason);
  showMonth();
}

/// All of it can be read and copied, unless a command has left something there.
void FrmHome::noteTrouble(const std::string& reason) {
  if (lastErrors_.empty() || lastErrors_ == trouble_) lastErrors_ = reason;
  trouble_ = reason;
  showStatus();
}

void FrmHome::showStatus() {
  if (module_.isRunning()) {
    LblStatus->setText(toQt("正在进行：" + module_.caption() + "。关闭它以后才能开始别的命令。"));
  } else {
    LblStatus->setText(lastEnd_.empty() ? QString("就绪") : toQt(lastEnd_));
  }
  CmdDetail->setVisible(!module_.isRunning() && !lastErrors_.empty());
}

/// One command at a time, none while nobody knows how the books are.
void FrmHome::lockCommands() {
  enableCommands();
  const bool ready = isReady();
  for (std::size_t i = 0; i < kSteps; ++i) {
    const MonthStep* step = reading_ ? &reading_->month.steps[i] : nullptr;
    const bool possible = ready &&
                          (step->kind != StepKind::Initialisation || step->state == StepState::Open) &&
                          (step->kind != StepKind::Disposals || !reading_->facts.depreciationIsDue);
    CmdStep[i]->setEnabled(possible);
    CmdMore[i]->setEnabled(ready);
  }
  CmdLogin->setEnabled(canStart());
  CmdPlan->setEnabled(ready);
  lockReports();
  const auto other = otherMonth();
  if (other) {
    CmdNext->setText(toQt("改到" + monthText(other->year, other->month)));
  } else if (reading_ && reading_->month.next) {
    CmdNext->setText(toQt(captionOf(reading_->month.steps[*reading_->month.next].commands.front())));
  }
  CmdNext->setVisible(other || (reading_ && reading_->month.next));
  CmdNext->setEnabled(ready);
}

/// The open month where another one is shown; none once the year's last one has been closed.
std::optional<OpenPeriod> FrmHome::otherMonth() const {
  if (!reading_ || reading_->month.period == PeriodState::Open) return std::nullopt;
  const auto& open = reading_->facts.open;
  return open && open->month <= kMonths ? open : std::nullopt;
}

void FrmHome::startNext() {
  if (const auto other = otherMonth()) {
    OpenedSet moved = opened_;
    moved.date = offeredDate(other, run().clock.now());
    logIn(std::move(moved));
  } else if (reading_ && reading_->month.next) {
    startStep(*reading_->month.next);
  }
}

void FrmHome::startStep(std::size_t index) {
  if (!reading_ || !CmdStep[index]->isEnabled()) return;
  start(reading_->month.steps[index].commands.front());
}

/// Enter while the list of names is shown, which hands it to the field alone: a name that has been walked to
/// there is started by the list.
void FrmHome::enterInList() {
  if (TxtCommand->completer()->popup()->currentIndex().isValid()) return;
  const auto start = [this, text = TxtCommand->text()] { host().dispatch([&] { startByName(text); }); };
  QMetaObject::invokeMethod(TxtCommand, start, Qt::QueuedConnection);  // the list has to go first
}

/// The command that is called so, or the only one whose name has the text in it.
void FrmHome::startByName(const QString& caption) {
  std::vector<StepCommand> found;
  for (const StepCommand& command : allCommands()) {
    const QString name = toQt(captionOf(command));
    if (name == caption) found = {command};
    if (name == caption) break;
    if (!caption.isEmpty() && name.contains(caption)) found.push_back(command);
  }
  if (found.empty()) tellOfCommand("没有名称中有“" + fromQt(caption) + "”的命令。");
  if (found.size() > 1) TxtCommand->completer()->complete();
  if (found.size() != 1) return;
  if (!mayStart(found.front()))
    return tellOfCommand("现在不能开始“" + std::string(captionOf(found.front())) + "”。");
  TxtCommand->clear();
  TxtCommand->completer()->popup()->hide();
  start(found.front());
}

/// While a command runs its own line stays.
void FrmHome::tellOfCommand(const std::string& text) {
  lastEnd_ = text;
  lastErrors_ = trouble_;
  showStatus();
}

void FrmHome::start(const StepCommand& command) {
  if (!mayStart(command)) return;
  if (!command.own.empty()) return startOwn(command.own);
  if (command.isRun(kReset) && !confirmReset()) return;
  if ((command.isRun(kReset) || command.isRun(kClosing)) && !offerBackup(command)) return;
  startModule(command);
}

void FrmHome::startModule(const StepCommand& command) {
  const std::string caption(captionOf(command));
  startChild(programs_.module, caption, argumentsFor(command, opened_),
             [this, caption](const ChildEnd& end) { ended(caption, end); });
}

void FrmHome::startChild(const std::string& program, const std::string& caption,
                         const std::vector<std::string>& arguments, Ended afterwards) {
  lastErrors_.clear();
  try {
    module_.start(program, caption, arguments,
                  [this, afterwards = std::move(afterwards)](const ChildEnd& end) {
                    host().dispatch([&] { afterwards(end); });
                  });
  } catch (const RuntimeError& error) {
    lastEnd_ = error.what();
    lastErrors_ = error.what();
  }
  showStatus();
  lockCommands();
}

bool FrmHome::confirmReset() {
  FrmConfirmName form(host(), opened_.set.name);
  host().showModal(form);
  return form.confirmed();
}

void FrmHome::ended(const std::string& caption, const ChildEnd& end) {
  focusedNext_ = false;  // meanwhile it was locked, and the keyboard somewhere
  lastEnd_ = end.failed() ? "⚠ " + sentenceAboutEnd(caption, end) : "“" + caption + "”已结束";
  lastErrors_ = end.failed() ? sentenceAboutEnd(caption, end) + "\n\n" + end.errors + end.output : "";
  showStatus();
  lockCommands();
  read();
}

void FrmHome::showDetail() {
  FrmEndDetail form(host(), lastErrors_);
  host().showModal(form);
}

}  // namespace zelkor
