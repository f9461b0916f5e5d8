#include "archives/frmType.h"

#include <utility>

#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kRootKey = "R";
constexpr int kNameRole = Qt::UserRole + 2;

/// A branch that has not been read shows that it can be opened.
void showAsUnread(QTreeWidgetItem& item) {
  item.setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  item.setIcon(0, closedFolderIcon());
}

bool isUnread(const QTreeWidgetItem& item) {
  return item.childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
}

}  // namespace

frmType::frmType(FormHost& host)
    : Form(host, "frmType", "增减方式参照", Unload::Plain), types_(run().engine) {
  dressTree(*tvwType);
  tvwType->setExpandsOnDoubleClick(false);
  arrange(this, column({wide(tvwType), row({stretch(), cmdYes, cmdCancel})}));
  resize(360, 460);
  on(tvwType, &QTreeWidget::itemExpanded, &frmType::tvwType_Expand);
  on(tvwType, &QTreeWidget::itemDoubleClicked, &frmType::cmdYes_Click);
  on(cmdYes, &QPushButton::clicked, &frmType::cmdYes_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
}

void frmType::setZkDataPath(const std::string& path) {
  types_.CloseZkData();
  types_.setZkDataPath(path);
  load();
}

void frmType::load() {
  const Recordset root = types_.rstGetDepartMent("根节点");
  if (!root.isOpen() || root.Eof()) return tvwType->clear();
  const TreeRow rows[] = {{kRootKey, "", root.TextOrEmpty("sName")}};
  loadTree(*tvwType, rows);
  QTreeWidgetItem* item = tvwType->topLevelItem(0);
  addNodes(*item, "顶层节点");
  item->setExpanded(true);
  for (int i = 0; i < item->childCount(); ++i) item->child(i)->setExpanded(true);
}

void frmType::addNodes(QTreeWidgetItem& parent, std::string_view node) {
  Recordset types = types_.rstGetDepartMent(node);
  for (; types.isOpen() && !types.Eof(); types.MoveNext()) {
    const std::string id = types.TextOrEmpty("sID");
    const std::string name = types.TextOrEmpty("sName");
    QTreeWidgetItem* item = addTreeRow(parent, {"D" + id, {}, "(" + id + ")" + name, id});
    item->setData(0, kNameRole, toQt(name));
    if (types.Fields("lChilds").numberOrZero() > 0) showAsUnread(*item);
  }
}

void frmType::tvwType_Expand(QTreeWidgetItem* item) {
  if (!isUnread(*item)) return;
  item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
  addNodes(*item, fromQt(tagOf(*item)));
  item->setIcon(0, item->childCount() > 0 ? openFolderIcon() : leafIcon());
}

void frmType::cmdYes_Click() {
  const QTreeWidgetItem* item = tvwType->currentItem();
  if (!item || tagOf(*item).isEmpty()) return;
  chosen_ = ArchiveEntry{fromQt(tagOf(*item)), fromQt(item->data(0, kNameRole).toString())};
  taken_ = true;
  close();
}

bool frmType::enterPressed(QObject* control) {
  if (control != tvwType) return false;
  cmdYes_Click();
  return true;
}

void frmType::Form_Unload() {
  if (!std::exchange(taken_, false)) chosen_.reset();
}

}  // namespace zelkor
