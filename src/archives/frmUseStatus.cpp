#include "archives/frmUseStatus.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QSignalBlocker>

#include "base/Text.h"
#include "ui/Focus.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kTitle = "固定资产";
constexpr int kSingleView = 1;
constexpr std::size_t kIDColumn = 2;

}  // namespace

frmUseStatus::frmUseStatus(FormHost& host)
    : Form(host, "frmUseStatus", "使用状况", Unload::Plain), statuses_(run().engine, run().gstrZtFile) {
  arrangeControls();
  Combo1->addItem("不提折旧", 0);
  Combo1->addItem("要提折旧", 1);
  connectEvents();
  reload();
  TreeView1->setFocus();
}

void frmUseStatus::arrangeControls() {
  arrangeCommands();
  dressTree(*TreeView1);
  Text1->setReadOnly(true);
  for (QWidget* field : {Text1, Text2, Text3}) field->setMinimumWidth(240);
  fillTabs(*TabStrip1, {{"列表", row({wide(MSFlexGrid1)})},
                        {"单张", column({row({fields({{"上级名称：", Text1},
                                                      {"使用状况名称：", Text2},
                                                      {"英文名称：", Text3},
                                                      {"是否计题折旧：", Combo1}}),
                                              stretch()}),
                                         stretch()})}});
  TabStrip1->widget(0)->setObjectName("ListItemView");
  TabStrip1->widget(kSingleView)->setObjectName("SingleView");
  arrangeScreen(this, Toolbar1,
                column({row({Command1, stretch()}), wide(panes(TreeView1, 230, TabStrip1, 530))}));
  ShowCatalog->setObjectName("ShowCatalog");
  addAction(ShowCatalog);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  resize(800, 500);
}

void frmUseStatus::arrangeCommands() {
  setCommands(Toolbar1, {{{"增加", "tlAdd"}, &frmUseStatus::add, &frmUseStatus::onRow},
                         {{"删除", "tlDelete"}, &frmUseStatus::remove, &frmUseStatus::onRow},
                         {{"修改", "tlModify"}, [this] { setMode(Mode::Change); }, &frmUseStatus::onRow},
                         {},
                         {{"取消", "tlCancel"}, &frmUseStatus::cancel, &frmUseStatus::editing},
                         {{"保存", "tlSave"}, &frmUseStatus::save, &frmUseStatus::editing},
                         {},
                         {{"刷新", "tlRefresh"}, &frmUseStatus::reload, &frmUseStatus::browsing},
                         {{"目录", "tlView"}, &frmUseStatus::showOrHideTree},
                         {},
                         {{"退出", "tlExit"}, &frmUseStatus::close}});
}

void frmUseStatus::connectEvents() {
  on(TreeView1, &QTreeWidget::currentItemChanged, &frmUseStatus::TreeView1_NodeClick);
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  on(MSFlexGrid1, &FlexGrid::rowSelected,
     [this](std::size_t row) { show(MSFlexGrid1->grid().text(row, kIDColumn)); });
  on(MSFlexGrid1, &FlexGrid::rowOpened, [this] { TabStrip1->setCurrentIndex(kSingleView); });
  on(Command1, &QPushButton::clicked, &frmUseStatus::showOrHideTree);
  on(ShowCatalog, &QAction::triggered, &frmUseStatus::showOrHideTree);
}

/// Reads the archive again; the entry that was selected stays selected if it is still there.
void frmUseStatus::reload() {
  const QTreeWidgetItem* selected = TreeView1->currentItem();
  const QString key = selected ? keyOf(*selected) : QString();
  {
    const QSignalBlocker quiet(TreeView1);
    loadTree(*TreeView1, statuses_.tree());
    TreeView1->expandAll();
    QTreeWidgetItem* item = findByKey(*TreeView1, key);
    TreeView1->setCurrentItem(item ? item : TreeView1->topLevelItem(0));
  }
  mode_ = Mode::Browse;
  TreeView1_NodeClick();
}

void frmUseStatus::TreeView1_NodeClick() {
  if (mode_ != Mode::Browse) {
    const Answer answer = run().dialogs.MsgBox("是否保存数据？", Buttons::YesNo, Icon::Question, kTitle);
    if (answer == Answer::Yes && save()) return;
  }
  const QTreeWidgetItem* item = TreeView1->currentItem();
  const std::string id = item ? fromQt(tagOf(*item)) : std::string();
  {
    const QSignalBlocker quiet(MSFlexGrid1);
    MSFlexGrid1->setGrid(statuses_.list(id));
    MSFlexGrid1->fitColumns();
    MSFlexGrid1->setColumnHidden(kIDColumn, true);
  }
  show(id);
}

std::string frmUseStatus::nameOf(const std::string& id) {
  const auto status = statuses_.read(id);
  return status ? status->name : std::string();
}

void frmUseStatus::show(const std::string& id) {
  current_ = statuses_.read(id).value_or(UsageStatus{});
  Text1->setText(toQt(nameOf(current_.parentID)));
  Text2->setText(toQt(current_.name));
  Text3->setText(toQt(current_.englishName));
  Combo1->setCurrentIndex(current_.depreciates ? 1 : 0);
  setMode(Mode::Browse);
}

void frmUseStatus::setMode(Mode mode) {
  mode_ = mode;
  MSFlexGrid1->setEnabled(browsing());
  Text2->setReadOnly(browsing());
  Text3->setReadOnly(browsing());
  Combo1->setEnabled(editing());
  enableCommands();
  if (browsing()) return;
  TabStrip1->setCurrentIndex(kSingleView);
  Text2->setFocus();
}

void frmUseStatus::showOrHideTree() {
  const bool show = TreeView1->isHidden();
  TreeView1->setVisible(show);
  const char* caption = show ? "隐藏目录" : "显示目录";
  Command1->setText(caption);
  ShowCatalog->setText(caption);
}

/// A new status hangs below the selected one of the first level, or beside the selected one of the second.
void frmUseStatus::add() {
  const std::string parentID = current_.level >= 2 ? current_.parentID : current_.id;
  current_ = {.id = current_.id, .name = {}, .englishName = {}, .parentID = parentID};
  Text1->setText(toQt(nameOf(parentID)));
  for (QLineEdit* field : {Text2, Text3}) field->setText({});  // what was there cannot be undone into it
  Combo1->setCurrentIndex(0);
  setMode(Mode::Add);
}

UsageStatus frmUseStatus::entered() const {
  UsageStatus status = current_;
  status.name = fromQt(Text2->text());
  status.englishName = fromQt(Text3->text());
  status.depreciates = Combo1->currentData().toInt() != 0;
  return status;
}

/// True when the record has been stored.
bool frmUseStatus::save() {
  const UsageStatus status = entered();
  if (Trim(status.name).empty()) {
    run().dialogs.MsgBox("名称不能为空！", Buttons::Ok, Icon::Exclamation, kTitle);
    returnTo(*Text2);
    return false;
  }
  if (mode_ == Mode::Add) {
    statuses_.add(status, current_.parentID);
  } else {
    statuses_.change(status);
  }
  reload();
  TreeView1->setFocus();
  return true;
}

void frmUseStatus::remove() {
  const Answer answer =
      run().dialogs.MsgBox("确定要删除当前所选记录吗？", Buttons::YesNo, Icon::Question, kTitle);
  if (answer != Answer::Yes) return;
  statuses_.remove(current_.id);
  reload();
}

void frmUseStatus::cancel() {
  const Answer answer = run().dialogs.MsgBox("是否取消本次操作？", Buttons::YesNo, Icon::Question, kTitle);
  if (answer == Answer::Yes) show(current_.id + " ");
}

}  // namespace zelkor
