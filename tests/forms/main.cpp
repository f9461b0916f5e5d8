#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>

#include "forms/ScriptTest.h"
#include "support/Paths.h"
#include "ui/Theme.h"

namespace {

/// The smallest screen on which the module has to be usable, and none of the machine's.
void useSmallScreen() {
  const std::string screen = (zelkor::test::testFolder() / "forms/screen.json").string();
  qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screen).c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.isEmpty() || platform == "offscreen") useSmallScreen();
  zelkor::ignoreDesktopSettings();
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  zelkor::applyTheme(application);
  QCursor::setPos(4000, 4000);  // no button looks touched in a picture
  zelkor::test::registerScripts();
  return RUN_ALL_TESTS();
}
