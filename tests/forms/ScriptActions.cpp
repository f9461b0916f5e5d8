#include <QTest>

#include "forms/Keyboard.h"
#include "forms/ScriptTest.h"
#include "ui/UpDown.h"

namespace zelkor::test {
namespace {

using Test = ScriptTest;

/// "Ctrl+S", "F2", "9": the key as Qt's names have it, with what it writes.
struct Key {
  explicit Key(const std::string& name) : pressed(QKeySequence(QString::fromStdString(name))[0]) {
    if (name.size() == 1) text = QString::fromStdString(name);
    if (name == "Space") text = " ";
  }
  QKeyCombination pressed;
  QString text;
};

void sendKeyTo(QWidget& widget, const std::string& name) {
  const Key key(name);
  sendKey(widget, key.pressed.key(), key.pressed.keyboardModifiers(), key.text);
}

/// Keys without a field's selection, as a person types them who has just come there.
void typeOn(QWidget& widget, const QString& text) {
  for (const QChar letter : text) sendKey(widget, letter.toUpper().unicode(), Qt::NoModifier, letter);
}

/// The field, with the focus and all of its text selected; the rest of the words is the text to come.
QWidget& startTyping(Test& test, const Arguments& a) {
  QWidget& field = test.at(a.word(0));
  type(*field.parentWidget(), qPrintable(field.objectName()), QString::fromStdString(a.behind(1)));
  return field;
}

/// Types over the cell that the grid itself lets one edit, and leaves it by the key.
void fillCell(Test& test, const Arguments& a) {
  auto* box = test.at<FlexGrid>(a.word(0)).viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(box && !box->isHidden());
  box->selectAll();
  typeOn(*box, QString::fromStdString(a.behind(2)));
  sendKeyTo(*box, a.word(1));
}

/// Key after key on whatever has the focus by then; a window that one of them opens takes the next. What is
/// in front in the end has the keyboard before anything is looked at.
void strikeAll(Test& test, const Arguments& a) {
  for (const std::string& keys : Split(a.line, ' ')) strike(test.windowInFront(), keys);
  if (test.windowInFront().isVisible()) awaitKeyboard(test.windowInFront());
}

/// Selects several rows.
void markRows(Test& test, const Arguments& a) {
  FlexGrid& cells = test.at<FlexGrid>(a.word(0));
  for (std::size_t i = 1; i < a.words().size(); ++i)
    cells.selectionModel()->setCurrentIndex(cells.cellIndex(a.number(i), 0),
                                            QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void setDate(Test& test, const Arguments& a) {
  const QDate date = QDate::fromString(QString::fromStdString(a.word(0)), "yyyy-M-d");
  if (auto* field = qobject_cast<QDateEdit*>(&test.at(a.word(1)))) return field->setDate(date);
  control<QCalendarWidget>(test.form(), "").setSelectedDate(date);
}

void openNode(Test& test, const Arguments& a) {
  auto& tree = test.at<QTreeWidget>(a.word(0));
  if (a.option == "all") return tree.expandAll();
  if (a.option == "none") return tree.collapseAll();
  auto* current = tree.currentItem();
  ASSERT_NE(current, nullptr);
  current->setExpanded(a.option != "shut");
}

void chooseEntry(Test& test, const Arguments& a) {
  const std::string name = a.word(0);
  choose(test.form(), name.c_str(), QString::fromStdString(a.behind(1)));
  auto& combo = control<QComboBox>(test.form(), name.c_str());
  emit combo.activated(combo.currentIndex());
}

void turnTo(Test& test, const Arguments& a) {
  const int index = static_cast<int>(a.number(1));
  for (const char* property : {"currentIndex", "currentRow"})
    if (test.at(a.word(0)).setProperty(property, index)) return;
  FAIL() << a.word(0) << " has no pages and no rows";
}

void doubleClick(Test& test, const Arguments& a) {
  QWidget& widget = test.at(a.word(0));
  if (auto* cells = qobject_cast<FlexGrid*>(&widget)) {
    emit cells->doubleClicked(cells->cellIndex(a.number(1), a.number(2)));
  } else if (auto* tree = qobject_cast<QTreeWidget*>(&widget)) {
    emit tree->itemDoubleClicked(tree->currentItem(), 0);
  } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    emit list->itemDoubleClicked(list->currentItem());
  }
}

void mousePress(Test& test, const Arguments& a) {
  QMouseEvent event(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&test.at(a.word(0)), &event);
}

/// Plays the lines below while another window is the active one.
void playElsewhere(Test& test, const Arguments& a) {
  QWidget other;
  other.show();
  Test::activate(other);
  test.play(a.below);
}

/// Plays the lines below on a window that has opened beside the screen.
void playOnWindow(Test& test, const Arguments& a) {
  const auto windows = windowsOf(a.word(0));
  ASSERT_EQ(windows.size(), 1U) << a.word(0);
  test.playOn(*windows.front(), a.below);
}

/// What is played in the modal form that the next action opens.
void playInNext(Test& test, const Arguments& a) {
  inModalForm([&test, lines = a.below](QWidget& modal) { test.playOn(modal, lines); });
}

void expectBox(Test& test, const Arguments& a) {
  const std::map<std::string, Icon> icons{
      {"", Icon::Exclamation}, {"i", Icon::Information}, {"x", Icon::Critical}, {"none", Icon::None}};
  QString text = QString::fromStdString(a.part(0));
  text.replace("{missing}", QString::fromStdString(test.missingFile()));
  test.dialogs.expectOk(text.toStdString(), icons.at(a.option), a.parts.size() > 1 ? a.part(1) : "固定资产");
}

/// A question, the answer, the title.
void expectQuestion(Test& test, const Arguments& a) {
  const std::map<std::string, Answer> answers{
      {"Yes", Answer::Yes}, {"No", Answer::No}, {"Ok", Answer::Ok}, {"Cancel", Answer::Cancel}};
  const Answer answer = answers.at(a.part(1));
  const bool yesNo = answer == Answer::Yes || answer == Answer::No;
  test.dialogs.expect({a.part(0), yesNo ? Buttons::YesNo : Buttons::OkCancel, Icon::Question,
                       a.parts.size() > 2 ? a.part(2) : "固定资产",
                       a.option == "second" ? DefaultButton::Second : DefaultButton::First},
                      answer);
}

}  // namespace

const std::map<std::string, Verb>& actionVerbs() {
  static const std::map<std::string, Verb> verbs{
      {"open", [](Test& test, const Arguments& a) { test.enter(openScreen(test, a)); }},
      {"run", startByRunType},
      {"activate",
       [](Test& test, const Arguments&) {
         Test::activate(test.form());
         awaitKeyboard(test.form());
       }},
      {"settle",
       [](Test&, const Arguments& a) {
         for (int turn = a.option.empty() ? 1 : std::stoi(a.option); turn > 0; --turn) Test::settle();
       }},
      {"close", [](Test& test, const Arguments&) { test.form().close(); }},
      {"show", [](Test& test, const Arguments&) { test.form().show(); }},
      {"focus", [](Test& test, const Arguments& a) { test.at(a.word(0)).setFocus(); }},
      {"click", [](Test& test, const Arguments& a) { click(test.form(), a.word(0).c_str()); }},
      {"mouse", mousePress},
      {"mouseClick",
       [](Test& test, const Arguments& a) { QTest::mouseClick(&test.at(a.word(0)), Qt::LeftButton); }},
      {"press", [](Test& test, const Arguments& a) { press(test.form(), a.part(0).c_str()); }},
      {"type", [](Test& test, const Arguments& a) { startTyping(test, a); }},
      {"enter",
       [](Test& test, const Arguments& a) {
         sendKeyTo(startTyping(test, a), a.option.empty() ? "Return" : a.option);
       }},
      {"keys", [](Test& test,
                  const Arguments& a) { typeOn(test.at(a.word(0)), QString::fromStdString(a.behind(1))); }},
      {"key", [](Test& test, const Arguments& a) { sendKeyTo(test.at(a.word(0)), a.word(1)); }},
      {"hit",
       [](Test& test, const Arguments& a) {
         const Key key(a.word(1));
         QTest::keyClick(&test.at(a.word(0)), key.pressed.key(), key.pressed.keyboardModifiers());
       }},
      {"strike", strikeAll},
      {"fill", fillCell},
      {"mark", markRows},
      {"date", setDate},
      {"spin",
       [](Test& test, const Arguments& a) { test.at<QSpinBox>(a.word(0)).setValue(std::stoi(a.word(1))); }},
      {"choose", chooseEntry},
      {"page", turnTo},
      {"node",
       [](Test& test, const Arguments& a) {
         selectNode(test.form(), a.word(0).c_str(), QString::fromStdString(a.behind(1)));
       }},
      {"expand", openNode},
      {"clickNode",
       [](Test& test, const Arguments& a) {
         auto& tree = test.at<QTreeWidget>(a.word(0));
         emit tree.itemClicked(tree.currentItem(), 0);
       }},
      {"step",
       [](Test& test, const Arguments& a) { emit test.at<UpDown>(a.word(0)).stepped(std::stoi(a.word(1))); }},
      {"line",
       [](Test& test, const Arguments& a) { test.at<FlexGrid>(a.word(0)).selectGridRow(a.number(1)); }},
      {"select",
       [](Test& test, const Arguments& a) {
         test.at<FlexGrid>(a.word(0)).selectCell(a.number(1), a.number(2));
       }},
      {"cell", [](Test& test,
                  const Arguments& a) { clickCell(test.at<FlexGrid>(a.word(0)), a.number(1), a.number(2)); }},
      {"double", doubleClick},
      {"sort",
       [](Test& test, const Arguments& a) {
         emit test.at<FlexGrid>(a.word(0)).horizontalHeader()->sectionClicked(static_cast<int>(a.number(1)));
       }},
      {"sql", [](Test& test, const Arguments& a) { test.execute(a.part(0)); }},
      {"prepare", prepare},
      {"system", [](Test& test, const Arguments& a) { test.context.dbZKSystem.Execute(a.part(0)); }},
      {"day", [](Test& test, const Arguments& a) { test.context.gdOpDate = day(a.part(0)); }},
      {"on", playOnWindow},
      {"elsewhere", playElsewhere},
      {"set", [](Test& test, const Arguments& a) { test.setParameter(a.word(0), a.behind(1)); }},
  };
  return verbs;
}

const std::map<std::string, Verb>& preparingVerbs() {
  static const std::map<std::string, Verb> verbs{
      {"box", expectBox},
      {"ask", expectQuestion},
      {"in", playInNext},
      {"leave", [](Test&, const Arguments&) { leaveNext(); }},
      {"pick",
       [](Test&, const Arguments& a) {
         pickNext(a.word(0), QString::fromStdString(a.behind(2)), a.word(1));
       }},
  };
  return verbs;
}

}  // namespace zelkor::test
