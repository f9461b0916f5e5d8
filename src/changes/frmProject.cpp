#include "changes/frmProject.h"

#include <QBoxLayout>
#include <QHeaderView>

#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

bool hasMark(const QTreeWidgetItem& item, std::string_view mark) {
  return tagOf(item) == toQt(mark);
}

}  // namespace

frmProject::frmProject(FormHost& host) : Form(host, "frmProject", "参照", Unload::Plain) {
  arrangeControls();
  connectEvents();
  load();
}

void frmProject::arrangeControls() {
  setCommands(Toolbar1, {{"确定", &frmProject::pickCurrent},
                         {},
                         {"刷新", &frmProject::load},
                         {},
                         {"退出", &frmProject::close}});
  dressTree(*TreeView1);
  opC->setChecked(true);
  Text1->setPlaceholderText("输入项目编码或名称，回车查找下一个");
  MSFG1->horizontalHeader()->setStretchLastSection(true);
  arrangeScreen(this, Toolbar1,
                column({wide(panes(TreeView1, 200, MSFG1, 540)),
                        frame("模糊匹配定位", row({wide(Text1), opA, opC, opR, opL}))}));
  resize(780, 460);
}

void frmProject::connectEvents() {
  on(TreeView1, &QTreeWidget::currentItemChanged, &frmProject::TreeView1_NodeClick);
  on(MSFG1, &FlexGrid::rowOpened, &frmProject::pick);
  on(Text1, &QLineEdit::textEdited, [this] { locateBehind(0); });
}

void frmProject::load() {
  loadTree(*TreeView1, projectClassTree(data()));
  QTreeWidgetItem* root = TreeView1->topLevelItem(0);
  root->setExpanded(true);
  TreeView1->setCurrentItem(root->childCount() > 0 ? root->child(0) : root);
}

void frmProject::TreeView1_NodeClick() {
  QTreeWidgetItem* item = TreeView1->currentItem();
  if (!item || hasMark(*item, kProjectRootMark)) return;
  if (hasMark(*item, kProjectGroupMark)) {
    showClass(*item->parent());
    showOnlyGroup(projectGroupCode(fromQt(keyOf(*item)), fromQt(keyOf(*item->parent()))));
  } else {
    showClass(*item);
  }
}

/// Shows the projects of a class; its groups come into the tree with the first look at it.
void frmProject::showClass(QTreeWidgetItem& projectClass) {
  classNumber_ = fromQt(tagOf(projectClass));
  if (projectClass.childCount() == 0) {
    for (const TreeRow& group : projectGroups(data(), classNumber_)) addTreeRow(projectClass, group);
    projectClass.setExpanded(true);
  }
  MSFG1->setGrid(projectList(data(), classNumber_));
}

void frmProject::showOnlyGroup(std::string_view code) {
  TextGrid list = MSFG1->grid();
  for (std::size_t row = list.headerRows(); row < list.rows(); ++row) {
    list.setRowHidden(row, list.text(row, kProjectGroupColumn) != code);
  }
  MSFG1->setGrid(std::move(list));
}

ProjectMatch frmProject::match() const {
  if (opA->isChecked()) return ProjectMatch::Whole;
  if (opR->isChecked()) return ProjectMatch::Right;
  return opL->isChecked() ? ProjectMatch::Left : ProjectMatch::Content;
}

void frmProject::locateBehind(std::size_t row) {
  if (Text1->text().isEmpty()) return;
  const std::size_t found = nextProject(MSFG1->grid(), row, fromQt(Text1->text()), match());
  if (found > 0) MSFG1->selectGridRow(found);
}

bool frmProject::enterPressed(QObject* control) {
  if (control != Text1) return false;
  if (seeking_) {
    pickCurrent();
  } else {
    locateBehind(MSFG1->currentGridRow().value_or(0));
  }
  return true;
}

bool frmProject::beginSearch(const QString& text) {
  seeking_ = true;
  Text1->setText(text);
  Text1->setFocus();
  Text1->end(false);
  locateBehind(0);
  return true;
}

void frmProject::pickCurrent() {
  if (const auto row = MSFG1->currentGridRow()) pick(*row);
}

void frmProject::pick(std::size_t row) {
  const TextGrid& list = MSFG1->grid();
  picked_ = {classNumber_, list.text(row, kProjectCodeColumn), list.text(row, kProjectNameColumn)};
  close();
}

}  // namespace zelkor
