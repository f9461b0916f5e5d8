#include "startup/Main.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
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
#include "ui/Theme.h"

namespace zelkor {
namespace {

/// The argument string: what stands behind the program's name, whole, as the suite's shell hands it over.
std::string argumentString() {
  return QCoreApplication::arguments().mid(1).join(' ').toStdString();
}

/// Asked before Qt is, which aborts the process where it finds no display.
bool displayIsMissing() {
  const auto unset = [](const char* name) { return qEnvironmentVariableIsEmpty(name); };
  return unset("DISPLAY") && unset("WAYLAND_DISPLAY") && unset("QT_QPA_PLATFORM");
}

void tellNoWindow(const std::string& why) {
  std::cerr << "zelkor: " << why << "，不能打开窗口；批处理运行类型可用 zelkorctl run" << std::endl;
}

/// What Qt was told about the screen.
std::string displaySettings() {
  QStringList settings;
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!qEnvironmentVariableIsEmpty(name)) settings << QString(name) + "=" + qEnvironmentVariable(name);
  }
  return settings.join("，").toStdString();
}

/// Qt aborts the process, after several lines, where it finds no way to a screen. In force while it looks for
/// one: then the process ends with a sentence and a status instead.
void giveUpOrderly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  tellNoWindow("不能连接显示器（" + displaySettings() + "）");
  std::_Exit(1);
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

  FormHost host(context, [](int status) { QCoreApplication::exit(status); });
  RunTypeJobs jobs;
  addBatchJobs(jobs);
  addScreens(jobs, host);
  QSocketNotifier endSignal(endSignalDescriptor(), QSocketNotifier::Read);
  QObject::connect(&endSignal, &QSocketNotifier::activated, [&] {
    endSignal.setEnabled(false);
    host.dispatch(goOnUnlessSignalled);
  });
  SingleInstance instance;
  host.dispatch([&] { Main(context, argumentString(), jobs, [&instance] { return instance.acquire(); }); });
  if (const auto status = host.endStatus()) return *status;
  return anyFormIsShown() ? QApplication::exec() : 0;
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  zelkor::catchEndSignals();
  if (zelkor::displayIsMissing()) {
    zelkor::tellNoWindow("没有显示器（DISPLAY 未设置）");
    return 1;
  }
  zelkor::ignoreDesktopSettings();
  qInstallMessageHandler(zelkor::giveUpOrderly);
  QApplication application(argc, argv);
  qInstallMessageHandler(nullptr);
  QApplication::setApplicationName("Zelkor");
  zelkor::applyTheme(application);
  return zelkor::runModule();
}
