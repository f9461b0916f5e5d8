#include "vouchers/frmPZCode.h"

#include <QGridLayout>

#include "store/SubjectText.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kRowsOfBoxes = 5;

}  // namespace

frmPZCode::frmPZCode(FormHost& host) : Form(host, "frmPZCode", "科目参照", Unload::Plain) {
  arrangeControls();
  on(TvCode, &QTreeWidget::currentItemChanged, &frmPZCode::TvCode_NodeClick);
  on(TvCode, &QTreeWidget::itemDoubleClicked, &frmPZCode::TvCode_DblClick);
  on(CmdFilter, &QPushButton::clicked, &frmPZCode::CmdFilter_Click);
  on(CmdUsed, &QPushButton::clicked, &frmPZCode::CmdUsed_Click);
  on(cmdOK, &QPushButton::clicked, &frmPZCode::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, &frmPZCode::cmdCancel_Click);
  load("");
}

void frmPZCode::arrangeControls() {
  dressTree(*TvCode);
  auto* boxes = new QGridLayout;
  for (std::size_t i = 0; i < ChkFilter.size(); ++i) {
    ChkFilter[i]->setText(toQt(subjectProperties[i].caption));
    boxes->addWidget(ChkFilter[i], static_cast<int>(i % kRowsOfBoxes), static_cast<int>(i / kRowsOfBoxes));
  }
  arrange(this, row({wide(TvCode), column({frame("科目属性", boxes), row({CmdFilter, CmdUsed, Command4}),
                                           stretch(), row({stretch(), cmdOK, cmdCancel})})}));
  resize(680, 460);
}

void frmPZCode::load(const std::string& filter) {
  const auto tree = subjectTree(data(), run().gstrUser, filter);
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

std::string frmPZCode::selectedText() const {
  const QTreeWidgetItem* item = TvCode->currentItem();
  return item ? fromQt(item->text(0)) : std::string();
}

void frmPZCode::showFlags(const SubjectFlags& flags) {
  for (std::size_t i = 0; i < flags.size(); ++i) ChkFilter[i]->setChecked(flags[i]);
}

void frmPZCode::TvCode_NodeClick() {
  showFlags(subjectFlags(data(), selectedText()));
}

void frmPZCode::TvCode_DblClick() {
  const QTreeWidgetItem* item = TvCode->currentItem();
  if (item && item->childCount() == 0) cmdOK_Click();
}

void frmPZCode::CmdFilter_Click() {
  SubjectFlags ticked{};
  for (std::size_t i = 0; i < ticked.size(); ++i) ticked[i] = ChkFilter[i]->isChecked();
  load(subjectFilter(ticked));
}

void frmPZCode::CmdUsed_Click() {
  const QTreeWidgetItem* item = TvCode->currentItem();
  if (!item || tagOf(*item).isEmpty() || keyOf(*item).startsWith("tt")) return;
  const std::string code = pickedSubject(selectedText()).code;
  if (!keepSubjectAsUsed(data(), run().gstrUser, code)) return;
  QTreeWidgetItem* used = findByKey(*TvCode, "t常用");
  if (used) addTreeRow(*used, {"tt" + code, "t常用", selectedText(), code});
}

void frmPZCode::cmdOK_Click() {
  picked_ = pickedSubject(selectedText());
  close();
}

void pickSubjectInto(FormHost& host, QLineEdit& field) {
  frmPZCode picker(host);
  host.showModal(picker);
  if (!picker.picked().code.empty()) field.setText(toQt(picker.picked().code + "," + picker.picked().name));
}

bool checkSubjectField(RunContext& run, QLineEdit& field) {
  const auto subject = lookUpSubject(run.dbZKData, fromQt(field.text()));
  if (subject) {
    field.setText(toQt(*subject));
    return true;
  }
  run.dialogs.MsgBox("科目录入错误!", Buttons::Ok, Icon::Critical, "固定资产");
  field.clear();
  return false;
}

}  // namespace zelkor
