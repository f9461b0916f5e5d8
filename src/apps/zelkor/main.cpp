#include "startup/Main.h"

#include <algorithm>
#include <QApplication>
#include <QSocketNotifier>
#include <QStringList>
#include <QWidget>
#include <string>

#include "apps/BatchJobs.h"
#include "apps/zelkor/Screens.h"
#include "base/EndSignals.h"
#include "startup/ProgramEnd.h"
#include "startup/SingleInstance.h"
#include "ui/FormHost.h"
#include "ui/QtDialogs.h"
#include "ui/Texts.h"
#include "ui/WindowProgram.h"

namespace zelkor {
namespace {

/// What stands behind the program's name. The argument string is what is there, whole, as the suite's shell
/// hands it over; before it may stand a screen that no run type starts: "--screen workload".
void startAsAsked(RunContext& context, const RunTypeJobs& jobs, SingleInstance& instance) {
  const QStringList words = QCoreApplication::arguments().mid(1);
  const auto becomeOnly = [&instance] { return instance.acquire(); };
  if (words.size() > 1 && words.front() == "--screen") {
    startExtraScreen(context, fromQt(words[1]), fromQt(words.mid(2).join(' ')), jobs, becomeOnly);
  } else {
    Main(context, fromQt(words.join(' ')), jobs, becomeOnly);
  }
}

bool anyFormIsShown() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::ranges::any_of(windows, [](const QWidget* window) { return window->isVisible(); });
}

int runModule() {
  QtDialogs dialogs;
  const SystemClock clock;
  DbEngine engine;
  RunContext context(engine, dialogs, clock);
  context.programFolder = programFolder();
  writeOutBeforeShowing(context);

  RunTypeJobs jobs;
  FormHost host(context, [](int status) { QCoreApplication::exit(status); });
  addBatchJobs(jobs);
  addScreens(jobs, host);
  QSocketNotifier endSignal(endSignalDescriptor(), QSocketNotifier::Read);
  QObject::connect(&endSignal, &QSocketNotifier::activated, [&] {
    endSignal.setEnabled(false);
    host.dispatch(goOnUnlessSignalled);
  });
  SingleInstance instance;
  host.dispatch([&] { startAsAsked(context, jobs, instance); });
  if (const auto status = host.endStatus()) return *status;
  return anyFormIsShown() ? QApplication::exec() : 0;
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  return zelkor::runWindowProgram(argc, argv, "zelkor", "批处理运行类型可用 zelkorctl run",
                                  zelkor::runModule);
}
