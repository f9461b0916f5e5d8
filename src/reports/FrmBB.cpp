#include "reports/FrmBB.h"

#include <QBoxLayout>
#include <QSignalBlocker>
#include <vector>

#include "reports/FrmBBCommands.h"
#include "reports/FrmBBTJ.h"
#include "reports/ReportCatalogue.h"
#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kReportKeyLength = 3;
constexpr int kKeyRole = Qt::UserRole;
constexpr int kIconSize = 16;

std::vector<TreeRow> catalogueTree() {
  const std::string root(kCatalogueRootKey);
  std::vector<TreeRow> tree{{root, "", std::string(kCatalogueRootName)}};
  for (const ReportFolder& folder : kReportFolders) {
    tree.push_back({std::string(folder.key), root, std::string(folder.name)});
  }
  for (const ReportKind& kind : reportKinds()) {
    tree.push_back({std::string(kind.key), std::string(kind.folder()), std::string(kind.name)});
  }
  return tree;
}

}  // namespace

FrmBB::FrmBB(FormHost& host) : Form(host, "FrmBB", "报表", Unload::Plain) {
  arrangeControls();
  loadCatalogue();
  connectEvents();
}

void FrmBB::arrangeControls() {
  setCommands(tbToolBar, reportCommands({{"打开", &FrmBB::openReport}, {"退出", &FrmBB::close}}));
  dressTree(*TreeView1);
  ListView1->setSpacing(2);
  ListView1->setIconSize(QSize(kIconSize, kIconSize));
  arrangeScreen(this, tbToolBar, column({wide(panes(TreeView1, 300, ListView1, 740))}));
  resize(1100, 600);
}

void FrmBB::loadCatalogue() {
  loadTree(*TreeView1, catalogueTree());
  findByKey(*TreeView1, "N1")->setIcon(0, closedFolderIcon());  // a folder, though nothing lies in it
  TreeView1->topLevelItem(0)->setExpanded(true);
}

void FrmBB::connectEvents() {
  on(TreeView1, &QTreeWidget::itemSelectionChanged, &FrmBB::TreeView1_NodeClick);
  on(TreeView1, &QTreeWidget::itemDoubleClicked, &FrmBB::TreeView1_DblClick);
  on(ListView1, &QListWidget::itemSelectionChanged, &FrmBB::ListView1_ItemClick);
  on(ListView1, &QListWidget::itemDoubleClicked, &FrmBB::openReport);
}

void FrmBB::TreeView1_NodeClick() {
  const auto selected = TreeView1->selectedItems();
  if (selected.isEmpty()) return;
  setCurrent(*selected.front());
  const QSignalBlocker quietly(ListView1);
  listReports();
  if (reportIsCurrent()) ListView1->setCurrentRow(currentKey_.back() - '1');
}

void FrmBB::listReports() {
  ListView1->clear();
  for (const ReportKind& kind : reportsOf(currentKey_)) {
    auto* item = new QListWidgetItem(leafIcon(), toQt(kind.name), ListView1);
    item->setData(kKeyRole, toQt(kind.key));
  }
}

void FrmBB::TreeView1_DblClick() {
  if (reportIsCurrent()) openReport();
}

void FrmBB::ListView1_ItemClick() {
  const auto selected = ListView1->selectedItems();
  if (selected.isEmpty()) return;
  QTreeWidgetItem* node = findByKey(*TreeView1, selected.front()->data(kKeyRole).toString());
  const QSignalBlocker quietly(TreeView1);
  TreeView1->setCurrentItem(node);
  setCurrent(*node);
}

void FrmBB::setCurrent(const QTreeWidgetItem& node) {
  currentText_ = fromQt(node.text(0));
  currentKey_ = fromQt(keyOf(node));
}

bool FrmBB::reportIsCurrent() const {
  return currentKey_.size() == kReportKeyLength;
}

void FrmBB::openReport() {
  const ReportKind* kind = findReport(currentText_);
  if (!kind) return;
  FrmBBTJ conditions(host(), *kind, view_);
  host().showModal(conditions);
}

bool FrmBB::enterPressed(QObject* control) {
  if (control == TreeView1) {
    TreeView1_DblClick();
  } else if (control == ListView1) {
    if (QListWidgetItem* item = ListView1->currentItem()) item->setSelected(true);
    openReport();
  } else {
    return false;
  }
  return true;
}

}  // namespace zelkor
