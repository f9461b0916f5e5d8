#include <QStatusBar>

#include "base/Text.h"
#include "forms/ScriptTest.h"
#include "forms/Walk.h"
#include "ui/UpDown.h"

namespace zelkor::test {
namespace {

using Test = ScriptTest;

/// Whether the text is the expected one, in which "…" stands for anything.
bool isLike(std::string_view text, std::string_view expected) {
  constexpr std::string_view kAnything = "…";
  const std::size_t gap = expected.find(kAnything);
  if (gap == std::string_view::npos) return text == expected;
  if (!text.starts_with(expected.substr(0, gap))) return false;
  expected.remove_prefix(gap + kAnything.size());
  for (std::size_t from = gap; from <= text.size(); ++from)
    if (isLike(text.substr(from), expected)) return true;
  return false;
}

void expectText(const std::string& seen, const std::string& expected) {
  if (isLike(seen, expected)) return;
  EXPECT_EQ(seen, expected);
}

std::string joined(const Lines& lines, const char* between) {
  std::string text;
  for (const std::string& line : lines) text += (&line == &lines.front() ? "" : between) + line;
  return lines.empty() ? "(none)" : text;
}

/// The lines are those below, or in one line behind the arrow, parted by " / ".
void expectLines(const Lines& seen, const Arguments& a) {
  if (a.below.empty()) return expectText(joined(seen, " / "), a.parts.back());
  Lines expected;
  for (const ScriptLine& line : a.below) expected.push_back(partsOf(line.text).front());
  expectText(joined(seen, "\n"), joined(expected, "\n"));
}

/// The label that a field lies over.
std::string labelBelow(const QWidget& field) {
  for (const QLabel* label : field.parentWidget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
    if (!label->isHidden() && label->geometry().contains(field.geometry().center()))
      return label->objectName().toStdString();
  return "";
}

/// What has no property of Qt.
std::optional<std::string> ownProperty(QWidget& widget, const std::string& name) {
  if (auto* cells = qobject_cast<FlexGrid*>(&widget)) {
    if (name.starts_with("hidden"))
      return cells->isColumnHidden(std::stoi(name.substr(6))) ? "true" : "false";
    if (name == "first")
      return cells->currentGridRow() ? cells->grid().text(*cells->currentGridRow(), 0) : "";
    if (name == "rows") return std::to_string(cells->grid().rows() - cells->grid().headerRows());
    if (name == "row") return cells->currentGridRow() ? std::to_string(*cells->currentGridRow()) : "";
    if (name == "column")
      return cells->currentGridColumn() ? std::to_string(*cells->currentGridColumn()) : "";
  }
  if (auto* tree = qobject_cast<QTreeWidget*>(&widget); tree && name.empty())
    return tree->currentItem() ? tree->currentItem()->text(0).toStdString() : "";
  if (auto* list = qobject_cast<QListWidget*>(&widget); list && name.empty())
    return list->selectedItems().isEmpty() ? "" : list->selectedItems().front()->text().toStdString();
  if (name == "over") return labelBelow(widget);
  if (auto* arrows = dynamic_cast<UpDown*>(&widget); arrows && name == "maximum")
    return std::to_string(arrows->maximum());
  if (auto* bar = qobject_cast<QStatusBar*>(&widget)) return bar->currentMessage().toStdString();
  return {};
}

/// "control" or "control.property"; commands go by their caption, ".property" is the screen's own.
std::string seenAt(const Test& test, const std::string& what) {
  const std::size_t dot = std::min(what.rfind('.'), what.size());
  const std::string name = what.substr(0, dot);
  const std::string property = what.substr(std::min(dot + 1, what.size()));
  const QObject* object = test.form().findChild<QAction*>(name.c_str());
  if (!object || name.empty()) {
    QWidget& widget = test.at(name.empty() ? "." : name);
    if (const auto own = ownProperty(widget, property)) return *own;
    object = &widget;
  }
  for (const char* candidate : {property.c_str(), "currentText", "plainText", "text"}) {
    const QVariant value = object->property(candidate);
    if (value.isValid()) return value.toString().toStdString();
    if (candidate == property.c_str() && !property.empty()) break;
  }
  throw std::runtime_error("nothing to see at " + what);
}

void see(Test& test, const Arguments& a) {
  std::string seen;
  for (const std::string& what : Split(a.part(0), ',')) seen += "|" + seenAt(test, what);
  expectText(seen.substr(1), a.part(1));
}

/// Lets the event loop work until that is seen.
void seeAfterAll(Test& test, const Arguments& a) {
  for (int turn = 0; turn < 1000 && !isLike(seenAt(test, a.part(0)), a.part(1)); ++turn) Test::settle();
  see(test, a);
}

void seeEnabled(Test& test, const Arguments& a) {
  Lines enabled;
  for (const std::string& caption : Split(a.part(0), ','))
    if (command(test.form(), caption.c_str()).isEnabled()) enabled.push_back(caption);
  expectText(joined(enabled, ","), a.part(1));
}

/// First cells of the rows that are not hidden.
Lines shownRows(const FlexGrid& cells) {
  Lines shown;
  for (std::size_t row = cells.grid().headerRows(); row < cells.grid().rows(); ++row)
    if (!cells.isRowHidden(cells.cellIndex(row, 0).row())) shown.push_back(cells.grid().text(row, 0));
  return shown;
}

/// All, or the levels that the option counts.
void seeNodes(Test& test, const Arguments& a) {
  Lines nodes = nodesOf(test.form(), a.word(0).c_str());
  const auto isDeep = [&](const std::string& node) {
    return node.find_first_not_of(' ') >= 2 * std::stoul(a.option);
  };
  if (!a.option.empty()) std::erase_if(nodes, isDeep);
  expectLines(nodes, a);
}

Lines entriesOf(const Test& test, const Arguments& a) {
  Lines entries;
  if (auto* combo = qobject_cast<QComboBox*>(&test.at(a.word(0)))) {
    for (int i = 0; i < combo->count(); ++i) entries.push_back(combo->itemText(i).toStdString());
    return entries;
  }
  auto& list = test.at<QListWidget>(a.word(0));
  for (int i = 0; i < list.count(); ++i) entries.push_back(list.item(i)->text().toStdString());
  return entries;
}

}  // namespace

const std::map<std::string, Verb>& lookingVerbs() {
  static const std::map<std::string, Verb> verbs{
      {"picture", [](Test& test, const Arguments& a) { keepPicture(test.form(), a.word(0)); }},
      {"see", see},
      {"until", seeAfterAll},
      {"enabled", seeEnabled},
      {"answer", [](Test& test, const Arguments& a) { expectText(answerOf(test.form()), a.part(0)); }},
      {"pickedSubject",
       [](Test& test, const Arguments& a) {
         EXPECT_EQ(test.context.pickedSubject.code + "|" + test.context.pickedSubject.name, a.part(0));
       }},
      {"end", [](Test& test, const Arguments& a) { EXPECT_EQ(std::to_string(test.endStatus()), a.part(0)); }},
      {"idle", [](Test& test, const Arguments&) { EXPECT_FALSE(test.engine.workspace().inTransaction()); }},
      {"param", [](Test& test, const Arguments& a) { expectText(test.parameter(a.part(0)), a.part(1)); }},
      {"rows", [](Test& test, const Arguments& a) { expectLines(test.rows(a.part(0)), a); }},
      {"windows",
       [](Test&, const Arguments& a) { EXPECT_EQ(std::to_string(windowsOf(a.word(0)).size()), a.part(1)); }},
      {"alone", [](Test&, const Arguments&) { EXPECT_EQ(QApplication::activeModalWidget(), nullptr); }},
      {"keep", [](Test& test, const Arguments& a) { test.keep(a.part(0)); }},
      {"kept", [](Test& test, const Arguments&) { EXPECT_EQ(test.rows(test.keptQuery), test.keptRows); }},
      {"grid", [](Test& test, const Arguments& a) { expectLines(body(test.form(), a.word(0).c_str()), a); }},
      {"heading",
       [](Test& test, const Arguments& a) {
         expectText(joined(textsOf(test.at<FlexGrid>(a.word(0)).grid()).front(), "|"), a.part(1));
       }},
      {"column",
       [](Test& test, const Arguments& a) {
         expectLines(columnOf(test.form(), a.word(0).c_str(), a.number(1)), a);
       }},
      {"written", [](Test& test, const Arguments& a) { expectLines(voucherLines(test.form()), a); }},
      {"shown",
       [](Test& test, const Arguments& a) { expectLines(shownRows(test.at<FlexGrid>(a.word(0))), a); }},
      {"lacks",
       [](Test& test, const Arguments& a) {
         const auto texts = joined(nodesOf(test.form(), a.word(0).c_str()), "\n");
         EXPECT_EQ(texts.find(a.behind(1)), std::string::npos) << texts;
       }},
      {"nodes", seeNodes},
      {"names", [](Test& test, const Arguments& a) { expectLines(namesOf(test.form()), a); }},
      {"entries", [](Test& test, const Arguments& a) { expectLines(entriesOf(test, a), a); }},
  };
  return verbs;
}

}  // namespace zelkor::test
