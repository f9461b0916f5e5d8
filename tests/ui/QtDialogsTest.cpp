#include <gtest/gtest.h>

#include <functional>
#include <QAbstractItemModel>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "ui/QtDialogs.h"

namespace zelkor::test {
namespace {

class QtDialogsTest : public testing::Test {
 protected:
  /// Does this with the next modal window once it is shown.
  template <typename Window>
  static void withNext(std::function<void(Window&)> action) {
    QTimer::singleShot(0, [action] {
      auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      action(*window);
    });
  }

  QtDialogs dialogs;
};

TEST_F(QtDialogsTest, AQuestionIsAnsweredByItsButton) {
  using B = QMessageBox;
  const struct {
    MessageBox box;
    const char* shown;
    B::StandardButton press;
    B::StandardButton expectedDefault;
    Answer expected;
  } cases[] = {
      {{"一\r\r二\r\n三\n四\r", Buttons::YesNo, Icon::Question, "固定资产"},
       "一\n\n二\n三\n四\n",
       B::No,
       B::Yes,
       Answer::No},
      {{"<b>", Buttons::YesNo, Icon::None, "", DefaultButton::Second}, "<b>", B::Yes, B::No, Answer::Yes},
      {{"a", Buttons::OkCancel, Icon::Critical, "变动单－－使用状况调整"},
       "a",
       B::Cancel,
       B::Ok,
       Answer::Cancel},
      {{"a", Buttons::YesNoCancel, Icon::None, "t"}, "a", B::Cancel, B::Yes, Answer::Cancel},
  };
  for (const auto& c : cases) {
    withNext<QMessageBox>([&c](QMessageBox& window) {
      EXPECT_EQ(window.text().toStdString(), c.shown);
      EXPECT_EQ(window.windowTitle().toStdString(), c.box.title.empty() ? "Zelkor" : c.box.title);
      EXPECT_EQ(window.textFormat(), Qt::PlainText);
      EXPECT_GT(window.width(), window.fontMetrics().horizontalAdvance(window.windowTitle()) + 100);
      EXPECT_EQ(window.defaultButton(), window.button(c.expectedDefault));
      window.button(c.press)->click();
    });
    EXPECT_EQ(dialogs.MsgBox(c.box), c.expected) << c.box.text;
  }
}

TEST_F(QtDialogsTest, ClosingAQuestionIsNoAnswerOfYes) {
  withNext<QMessageBox>([](QMessageBox& window) { window.reject(); });
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::YesNo), Answer::No);
}

TEST_F(QtDialogsTest, ALongJobIsShownInASmallWindowUntilItEnds) {
  const auto box = [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "ProgressBox" && window->isVisible()) return window;
    }
    return static_cast<QWidget*>(nullptr);
  };
  dialogs.showProgress({"正在计提折旧", 250, 1000});
  dialogs.showProgress({"正在计提折旧", 500, 1000});
  ASSERT_NE(box(), nullptr);
  EXPECT_EQ(box()->findChild<QLabel*>()->text(), "正在计提折旧");
  EXPECT_EQ(box()->findChild<QProgressBar*>()->text(), "500 / 1000");
  dialogs.endProgress();
  EXPECT_EQ(box(), nullptr);
}

TEST_F(QtDialogsTest, AGridIsShownUnderItsHeader) {
  TextGrid grid;
  grid.addRow({"编号", "金额", "码"});
  grid.addRow({"1", "5.00", "x"});
  grid.addRow({"合计", "5.00", "x"});
  grid.setHeaderRows(1);
  grid.setAlignment(1, Align::Right);
  grid.setColumnHidden(2, true);
  withNext<QDialog>([](QDialog& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "折旧分配表");
    const auto* view = window.findChild<QTableView*>("grid");
    ASSERT_NE(view, nullptr);
    const QAbstractItemModel& model = *view->model();
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString().toStdString(), "金额");
    EXPECT_EQ(model.data(model.index(1, 0)).toString().toStdString(), "合计");
    EXPECT_TRUE(view->isColumnHidden(2));
    window.reject();
  });
  dialogs.showGrid("折旧分配表", grid);
}

}  // namespace
}  // namespace zelkor::test
