#include "ui/TreePicker.h"

#include <QKeyEvent>
#include <QTreeWidgetItemIterator>

#include "ui/Focus.h"
#include "ui/TreeLoader.h"
#include "ui/TreeSearch.h"

namespace zelkor {
namespace {

constexpr std::size_t kOpenedWhole = 200;  // a longer tree shows its first levels only

}  // namespace

TreePicker::TreePicker(FormHost& host, const char* name, const char* caption, const TreePickerNames& names)
    : Form(host, name, caption, Unload::Plain),
      tree(make<QTreeWidget>(names.tree)),
      byCode(make<QRadioButton>(names.byCode, "按编码查询")),
      byName(make<QRadioButton>(names.byName, "按名称查询")),
      search(make<QLineEdit>(names.search)),
      stepper(make<UpDown>(names.step)),
      takeButton(make<QPushButton>(names.take, "确认")),
      cancelButton(make<QPushButton>(names.cancel, "取消")) {
  dressTree(*tree);
  byName->setChecked(true);
  on(tree, &QTreeWidget::currentItemChanged, [this] { selectionChanged(); });
  on(tree, &QTreeWidget::itemDoubleClicked, [this] { takeEntry(); });
  on(search, &QLineEdit::textEdited, [this](const QString& text) { searched_ = text; });
  on(stepper, &UpDown::stepped, [this](int direction) { goToMatch(-direction); });
  on(takeButton, &QPushButton::clicked, [this] { take(); });
  on(cancelButton, &QPushButton::clicked, [this] { cancel(); });
}

void TreePicker::arrangeControls(std::initializer_list<layout::Item> buttons) {
  using namespace layout;
  auto* field = row({wide(search), stepper});
  field->setSpacing(0);
  arrange(this, column({wide(tree), frame("查询方式", column({row({byCode, byName, stretch()}), field})),
                        row(buttons)}));
  resize(360, 460);
}

void TreePicker::fill(std::span<const TreeRow> rows) {
  {
    const QSignalBlocker quiet(tree);
    loadTree(*tree, rows);
  }
  if (rows.size() <= kOpenedWhole) {
    tree->expandAll();
  } else {
    tree->expandToDepth(0);
  }
}

void TreePicker::preselect(const QString& tag) {
  for (QTreeWidgetItemIterator it(tree); *it; ++it) {
    if (!tag.isEmpty() && tagOf(**it) == tag) return tree->setCurrentItem(*it);
  }
}

const QTreeWidgetItem* TreePicker::selectedEntry() const {
  const QTreeWidgetItem* item = tree->currentItem();
  return item && !tagOf(*item).isEmpty() ? item : nullptr;
}

void TreePicker::showSelected() {
  if (const QTreeWidgetItem* item = selectedEntry()) search->setText(item->text(0));
}

bool TreePicker::eventFilter(QObject* control, QEvent* event) {
  const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
  const bool begins = key && control == tree && writesText(*key);
  return begins ? beginSearch(key->text()) : Form::eventFilter(control, event);
}

bool TreePicker::enterPressed(QObject* control) {
  if (control == tree) {
    takeEntry();
    return true;
  }
  if (control != search) return false;
  if (seeking_) return takeFirstMatch();
  goToMatch(1);
  tree->setFocus();
  return true;
}

bool TreePicker::beginSearch(const QString& text) {
  (text.front().isDigit() ? byCode : byName)->setChecked(true);
  search->setText(text);
  search->setFocus();
  search->end(false);
  searched_ = text;
  seeking_ = true;
  return true;
}

/// True also when nothing is found: the search goes on.
bool TreePicker::takeFirstMatch() {
  const TreeSearch sought = this->sought();
  for (QTreeWidgetItemIterator it(tree); *it; ++it) {
    if (!matches(**it, sought) || !mayBeTaken(**it)) continue;
    tree->setCurrentItem(*it);
    takeEntry();
    return true;
  }
  return true;
}

TreeSearch TreePicker::sought() const {
  return {searched_, byCode->isChecked() ? TreeSearch::ByCode : TreeSearch::ByName};
}

void TreePicker::goToMatch(int direction) {
  const TreeSearch sought = this->sought();
  if (QTreeWidgetItem* item = nextMatch(*tree, sought, direction)) tree->setCurrentItem(item);
}

}  // namespace zelkor
