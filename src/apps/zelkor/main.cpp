#include "startup/Main.h"

#include <algorithm>
#include <QApplication>
#include <QStringList>
#include <QWidget>
#include <string>

#include "apps/BatchJobs.h"
#include "startup/ProgramEnd.h"
#include "startup/SingleInstance.h"
#include "ui/QtDialogs.h"

namespace zelkor {
namespace {

/// The argument string: what stands behind the program's name, whole, as the suite's shell hands it over.
std::string argumentString() {
  return QCoreApplication::arguments().mid(1).join(' ').toStdString();
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
  addBatchJobs(jobs);
  SingleInstance instance;
  const auto status = runToEnd(
      context, [&] { Main(context, argumentString(), jobs, [&instance] { return instance.acquire(); }); });
  if (status) return *status;
  return anyFormIsShown() ? QApplication::exec() : 0;
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName("Zelkor");
  return zelkor::runModule();
}
