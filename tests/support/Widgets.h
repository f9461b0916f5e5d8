#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <stdexcept>
#include <string>

#include "support/AccountSetFixture.h"
#include "ui/FlexGrid.h"
#include "ui/FormHost.h"

namespace zelkor::test {

using Lines = std::vector<std::string>;

/// The control of that name; what is missing is told with the names that are there.
template <typename Control>
Control& control(const QWidget& form, const char* name) {
  if (auto* found = form.findChild<Control*>(name)) return *found;
  std::string there;
  for (const QWidget* child : form.findChildren<QWidget*>()) {
    if (!child->objectName().startsWith("qt_")) there += " " + child->objectName().toStdString();
  }
  throw std::runtime_error("no control " + std::string(name) + " of that kind in " +
                           form.objectName().toStdString() + ", only:" + there);
}

inline void sendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&widget, &release);
}

/// Gives the field the focus and types over what stands there, key by key, so that the field's limits count.
inline void type(const QWidget& form, const char* name, const QString& text) {
  auto& field = control<QLineEdit>(form, name);
  field.setFocus();
  field.selectAll();
  if (text.isEmpty()) sendKey(field, Qt::Key_Backspace);
  for (const QChar letter : text) sendKey(field, letter.toUpper().unicode(), Qt::NoModifier, letter);
}

inline void click(const QWidget& form, const char* name) {
  auto& button = control<QAbstractButton>(form, name);
  ASSERT_TRUE(button.isEnabled()) << name << " is locked";
  button.click();
}

inline QAction& command(const QWidget& form, const char* caption) {
  if (auto* action = form.findChild<QAction*>(caption)) return *action;
  throw std::runtime_error(std::string("no command ") + caption);
}

/// Presses a command of the toolbar, which must be enabled.
inline void press(const QWidget& form, const char* caption) {
  ASSERT_TRUE(command(form, caption).isEnabled()) << caption << " is locked";
  command(form, caption).trigger();
}

inline std::string textOf(const QWidget& form, const char* name) {
  return control<QWidget>(form, name).property("text").toString().toStdString();
}

inline void choose(const QWidget& form, const char* name, const QString& entry) {
  auto& combo = control<QComboBox>(form, name);
  const int index = combo.findText(entry);
  ASSERT_GE(index, 0) << entry.toStdString() << " is not in " << name;
  combo.setCurrentIndex(index);
}

/// Selects the tree's entry with that text.
inline void selectNode(const QWidget& form, const char* name, const QString& text) {
  auto& tree = control<QTreeWidget>(form, name);
  for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
    if ((*it)->text(0) == text) return tree.setCurrentItem(*it);
  }
  FAIL() << text.toStdString() << " is not in " << name;
}

/// Texts of a tree's entries, each below its parent, two blanks in front per level.
inline Lines nodesOf(const QWidget& form, const char* name) {
  Lines nodes;
  for (QTreeWidgetItemIterator it(&control<QTreeWidget>(form, name)); *it; ++it) {
    std::string indent;
    for (const QTreeWidgetItem* above = (*it)->parent(); above; above = above->parent()) indent += "  ";
    nodes.push_back(indent + (*it)->text(0).toStdString());
  }
  return nodes;
}

inline FlexGrid& gridOf(const QWidget& form, const char* name) {
  return control<FlexGrid>(form, name);
}

/// Rows below the grid's headings, cells joined by "|", hidden columns left out.
inline Lines body(const QWidget& form, const char* name) {
  const TextGrid& grid = gridOf(form, name).grid();
  Lines lines;
  for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) {
    std::string line;
    for (std::size_t column = 0; column < grid.columns(); ++column) {
      if (!grid.columnHidden(column)) line += grid.text(row, column) + "|";
    }
    line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

/// Cells of a column below the grid's headings.
inline Lines columnOf(const QWidget& form, const char* name, std::size_t column) {
  const TextGrid& grid = gridOf(form, name).grid();
  Lines cells;
  for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) cells.push_back(grid.text(row, column));
  return cells;
}

inline void clickCell(FlexGrid& grid, std::size_t row, std::size_t column) {
  grid.selectCell(row, column);
  emit grid.clicked(grid.cellIndex(row, column));
}

/// Whether windows come up on a display, in their own time, and keys come from there
/// (tests/support/with-screen).
inline bool inRealWindow() {
  return QGuiApplication::platformName() == "xcb";
}

/// The modal forms that are still to be opened.
inline int& modalFormsToCome() {
  static int count = 0;
  return count;
}

/// Does something in the modal form that the next action opens.
inline void inModalForm(std::function<void(QWidget&)> action) {
  constexpr int kPatience = 2000;
  auto* look = new QTimer;
  look->setInterval(inRealWindow() ? 5 : 0);
  ++modalFormsToCome();
  const auto act = [look, action = std::move(action), before = QApplication::activeModalWidget(),
                    tries = inRealWindow() ? kPatience : 1]() mutable {
    QWidget* form = QApplication::activeModalWidget();
    if (--tries > 0 && (!form || form == before || !form->isActiveWindow())) return;
    look->stop();
    look->deleteLater();
    --modalFormsToCome();
    if (!form) return ADD_FAILURE() << "no modal form is open", void();
    action(*form);
    if (QApplication::activeModalWidget() == form) {
      ADD_FAILURE() << form->objectName().toStdString() << " stays open";
      form->close();
    }
  };
  QObject::connect(look, &QTimer::timeout, act);
  look->start();
}

/// Takes an entry in the picker that the next action opens.
inline void pickNext(const std::string& tree, const QString& entry, const std::string& button) {
  inModalForm([tree, entry, button](QWidget& picker) {
    selectNode(picker, tree.c_str(), entry);
    click(picker, button.c_str());
  });
}

/// Leaves the modal form that the next action opens.
inline void leaveNext() {
  inModalForm([](QWidget& form) { sendKey(form, Qt::Key_Escape); });
}

/// The ways to leave a form without a choice.
inline std::vector<std::function<void(QWidget&)>> waysToLeave(const char* cancel) {
  return {[cancel](QWidget& form) { click(form, cancel); },
          [](QWidget& form) { sendKey(form, Qt::Key_Escape); }, [](QWidget& form) { form.close(); }};
}

/// Every control that Tab reaches has a name for a screen reader, they are reached as one reads, and the form
/// is no larger than its screen.
void expectReadable(const QWidget& form);

/// Looks at a form as it stands and keeps a picture of it, under that name in the folder that
/// ZELKOR_SCREENSHOTS names.
inline void keepPicture(QWidget& form, const std::string& name) {
  expectReadable(form);
  const QString folder = qEnvironmentVariable("ZELKOR_SCREENSHOTS");
  if (folder.isEmpty()) return;
  QApplication::processEvents();
  EXPECT_TRUE(form.grab().save(folder + "/" + QString::fromStdString(name) + ".png")) << name;
}

/// A fixture with a host for forms on its account set, whose end of the program is recorded.
template <typename Fixture>
class WithForms : public Fixture {
 public:
  using Fixture::context;
  FormHost host{this->context, [](int) {}};

 protected:
  /// Gives the event loop its turn: deferred events are handled.
  static void settle() { QApplication::processEvents(); }
  /// Makes the form the active window, in which the focus moves.
  static void activate(QWidget& form) {
    form.activateWindow();
    settle();
  }
  /// Exit status once the program has ended, -1 while it runs.
  int endStatus() const { return host.endStatus().value_or(-1); }

  /// The next box tells this.
  void tells(const std::string& text, Icon icon = Icon::Exclamation, const std::string& title = "固定资产") {
    this->dialogs.expectOk(text, icon, title);
  }
  /// A parameter of the account set.
  std::string parameter(const std::string& name) {
    return this->row("select cValue from AccInformation where cSysID='FA' and cName='" + name + "'");
  }
  void setParameter(const std::string& name, const std::string& value) {
    this->execute("update AccInformation set cValue='" + value + "' where cSysID='FA' and cName='" + name +
                  "'");
  }
};

using FormTest = WithForms<AccountSetTest>;

}  // namespace zelkor::test
