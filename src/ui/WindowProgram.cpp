#include "ui/WindowProgram.h"

#include <cstdlib>
#include <iostream>
#include <QApplication>
#include <QStringList>

#include "base/EndSignals.h"
#include "ui/Theme.h"

namespace zelkor {
namespace {

/// "zelkor: …，不能打开窗口；…", for a handler that gets nothing but what Qt says.
struct Complaint {
  std::string name;
  std::string instead;
};
Complaint& complaint() {
  static Complaint kept;
  return kept;
}

/// Asked before Qt is, which aborts the process where it finds no display.
bool displayIsMissing() {
  const auto unset = [](const char* name) { return qEnvironmentVariableIsEmpty(name); };
  return unset("DISPLAY") && unset("WAYLAND_DISPLAY") && unset("QT_QPA_PLATFORM");
}

void tellNoWindow(const std::string& why) {
  std::cerr << complaint().name << ": " << why << "，不能打开窗口；" << complaint().instead << std::endl;
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

}  // namespace

int runWindowProgram(int argc, char** argv, const std::string& name, const std::string& instead,
                     const std::function<int()>& work) {
  complaint() = {name, instead};
  catchEndSignals();
  if (displayIsMissing()) {
    tellNoWindow("没有显示器（DISPLAY 未设置）");
    return 1;
  }
  ignoreDesktopSettings();
  qInstallMessageHandler(giveUpOrderly);
  QApplication application(argc, argv);
  qInstallMessageHandler(nullptr);
  QApplication::setApplicationName("Zelkor");
  applyTheme(application);
  return work();
}

}  // namespace zelkor
