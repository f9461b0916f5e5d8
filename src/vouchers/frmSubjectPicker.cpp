#include "vouchers/frmSubjectPicker.h"

#include <QGridLayout>

#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kRowsOfBoxes = 5;

}  // namespace

frmSubjectPicker::frmSubjectPicker(FormHost& host, const char* name)
    : Form(host, name, "科目参照", Unload::Plain) {
  arrangeControls();
  on(TvCode, &QTreeWidget::currentItemChanged, &frmSubjectPicker::TvCode_NodeClick);
  on(TvCode, &QTreeWidget::itemClicked, &frmSubjectPicker::TvCode_NodeClick);
  on(TvCode, &QTreeWidget::itemDoubleClicked, &frmSubjectPicker::TvCode_DblClick);
  on(CmdFilter, &QPushButton::clicked, &frmSubjectPicker::CmdFilter_Click);
  on(CmdUsed, &QPushButton::clicked, &frmSubjectPicker::CmdUsed_Click);
  on(cmdOK, &QPushButton::clicked, &frmSubjectPicker::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, &frmSubjectPicker::cmdCancel_Click);
}

void frmSubjectPicker::setSubjectData(const Database& database) {
  subjects_ = database;
  load("");
}

void frmSubjectPicker::arrangeControls() {
  dressTree(*TvCode);
  lockIdle(Command4);
  auto* boxes = new QGridLayout;
  for (std::size_t i = 0; i < ChkFilter.size(); ++i) {
    ChkFilter[i]->setText(toQt(kSubjectProperties[i].caption));
    boxes->addWidget(ChkFilter[i], static_cast<int>(i % kRowsOfBoxes), static_cast<int>(i / kRowsOfBoxes));
  }
  arrange(this, row({wide(TvCode), column({frame("科目属性", boxes), row({CmdFilter, CmdUsed, Command4}),
                                           stretch(), row({stretch(), cmdOK, cmdCancel})})}));
  resize(680, 460);
}

void frmSubjectPicker::load(const std::string& filter) {
  const auto tree = subjectTree(subjects_, run().gstrUser, filter);
  if (!tree) {
    run().dialogs.MsgBox("科目规则有误！", Buttons::Ok, Icon::None, "凭证");
    return;
  }
  const QSignalBlocker quiet(TvCode);
  loadTree(*TvCode, *tree);
  if (filter.empty()) return;
  for (const char* name : {"常用", "资产", "负债", "权益", "成本", "损益"}) {
    if (QTreeWidgetItem* head = findByKey(*TvCode, QString("t") + name)) head->setExpanded(true);
  }
}

std::string frmSubjectPicker::selectedText() const {
  const QTreeWidgetItem* item = TvCode->currentItem();
  return item ? fromQt(item->text(0)) : std::string();
}

void frmSubjectPicker::showFlags(const SubjectFlags& flags) {
  for (std::size_t i = 0; i < flags.size(); ++i) ChkFilter[i]->setChecked(flags[i]);
}

void frmSubjectPicker::TvCode_NodeClick() {
  showFlags(subjectFlags(subjects_, selectedText()));
}

void frmSubjectPicker::TvCode_DblClick() {
  const QTreeWidgetItem* item = TvCode->currentItem();
  if (item && item->childCount() == 0) cmdOK_Click();
}

void frmSubjectPicker::CmdFilter_Click() {
  SubjectFlags ticked{};
  for (std::size_t i = 0; i < ticked.size(); ++i) ticked[i] = ChkFilter[i]->isChecked();
  load(subjectFilter(ticked));
}

void frmSubjectPicker::CmdUsed_Click() {
  const QTreeWidgetItem* item = TvCode->currentItem();
  if (!item || tagOf(*item).isEmpty() || keyOf(*item).startsWith("tt")) return;
  const std::string code = pickedSubject(selectedText()).code;
  if (!keepSubjectAsUsed(subjects_, run().gstrUser, code)) return;
  QTreeWidgetItem* used = findByKey(*TvCode, "t常用");
  if (used) addTreeRow(*used, {"tt" + code, "t常用", selectedText(), code});
}

void frmSubjectPicker::cmdOK_Click() {
  pick(pickedSubject(selectedText()));
  close();
}

bool frmSubjectPicker::beginSearch(const QString& text) {
  TvCode->expandAll();
  TvCode->setFocus();
  TvCode->keyboardSearch(text);
  return true;
}

/// Enter opens a node that has others below it and takes one that has none.
bool frmSubjectPicker::enterPressed(QObject* control) {
  QTreeWidgetItem* item = TvCode->currentItem();
  if (control != TvCode || !item) return false;
  if (item->childCount() == 0) {
    cmdOK_Click();
  } else {
    item->setExpanded(!item->isExpanded());
  }
  return true;
}

}  // namespace zelkor
