#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "ui/QtDialogs.h"

namespace zelkor::test {
namespace {

TEST(QtDialogsTest, breaksLinesAtEveryKindOfLineEnd) {
  QString shown;
  QTimer::singleShot(0, [&shown] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    shown = box->text();
    box->button(QMessageBox::No)->click();
  });
  QtDialogs dialogs;
  EXPECT_EQ(dialogs.MsgBox("一\r\r二\r\n三\n四\r", Buttons::YesNo), Answer::No);
  EXPECT_EQ(shown, "一\n\n二\n三\n四\n");
}

}  // namespace
}  // namespace zelkor::test
