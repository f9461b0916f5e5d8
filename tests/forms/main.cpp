#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>

#include "forms/ScriptTest.h"
#include "ui/Theme.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  zelkor::applyTheme(application);
  QCursor::setPos(4000, 4000);  // no button looks touched in a picture
  zelkor::test::registerScripts();
  return RUN_ALL_TESTS();
}
