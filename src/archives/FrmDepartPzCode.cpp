#include "archives/FrmDepartPzCode.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QSignalBlocker>

#include "archives/DepartArchive.h"
#include "store/settings/SubjectText.h"
#include "ui/Focus.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kTitle = "固定资产";
constexpr const char* kRootCode = "&";
constexpr const char* kRootKey = "R";
constexpr int kDetailTab = 1;

}  // namespace

FrmDepartPzCode::FrmDepartPzCode(FormHost& host)
    : Form(host, "FrmDepartPzCode", "部门编码表", Unload::EndsProgram), departs_(run().engine) {
  departs_.setZkDataPath(run().gOpArgs.ZkDataPath());
  arrangeControls();
  connectEvents();
  reload();
}

void FrmDepartPzCode::arrangeControls() {
  arrangeCommands();
  dressTree(*TvLeft);
  dressPick(CmdGDZCDZKM, TxtGDZCDZKM);
  TxtGDZCDZKM->setMinimumWidth(260);
  fillTabs(*SSTab1,
           {{"列表", row({wide(MSFlexGrid1)})},
            {"单张", column({row({fields({{"部门编码：", row({LblBMBM1, LblBMBM2, stretch()})},
                                          {"部门名称：", LblBMMC},
                                          {"上级名称：", LblSJMC},
                                          {"折旧科目：", row({LblZJKM, wide(TxtGDZCDZKM), CmdGDZCDZKM})}}),
                                  stretch()}),
                             stretch()})}});
  arrangeScreen(this, Toolbar1, row({wide(panes(TvLeft, 280, SSTab1, 560))}));
  resize(880, 540);
}

void FrmDepartPzCode::arrangeCommands() {
  setCommands(Toolbar1, {{"增加"},
                         {"删除"},
                         {"修改", [this] { setEditing(true); }, &FrmDepartPzCode::mayEdit},
                         {},
                         {"取消", &FrmDepartPzCode::cancel, &FrmDepartPzCode::editing},
                         {"保存", [this] { save(SavedBy::Command); }, &FrmDepartPzCode::editing},
                         {},
                         {"刷新", &FrmDepartPzCode::reload, &FrmDepartPzCode::browsing},
                         {},
                         {"退出", &FrmDepartPzCode::close}});
}

void FrmDepartPzCode::connectEvents() {
  on(TvLeft, &QTreeWidget::currentItemChanged, &FrmDepartPzCode::TvLeft_NodeClick);
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  on(MSFlexGrid1, &FlexGrid::rowSelected,
     [this](std::size_t row) { showDetails(MSFlexGrid1->grid().text(row, 0)); });
  on(MSFlexGrid1, &FlexGrid::rowOpened, [this] { SSTab1->setCurrentIndex(kDetailTab); });
  on(CmdGDZCDZKM, &QPushButton::clicked, [this] { pickSubjectInto(host(), *TxtGDZCDZKM); });
}

void FrmDepartPzCode::reload() {
  std::vector<TreeRow> rows{{kRootKey, "", "固定资产部门编码目录"}};
  for (TreeRow& depart : departTree(departs_)) {
    if (depart.parentKey.empty()) depart.parentKey = std::string(kRootKey);
    rows.push_back(std::move(depart));
  }
  {
    const QSignalBlocker quiet(TvLeft);
    loadTree(*TvLeft, rows);
    TvLeft->expandAll();
    QTreeWidgetItem* item = findByKey(*TvLeft, "D" + toQt(treeCode_));
    TvLeft->setCurrentItem(item ? item : TvLeft->topLevelItem(0));
  }
  TvLeft_NodeClick();
}

void FrmDepartPzCode::TvLeft_NodeClick() {
  const QTreeWidgetItem* item = TvLeft->currentItem();
  const QString code = item ? tagOf(*item) : QString();
  treeCode_ = code.isEmpty() ? kRootCode : fromQt(code);
  fillList();
  showDetails(treeCode_);
}

void FrmDepartPzCode::fillList() {
  const QSignalBlocker quiet(MSFlexGrid1);
  MSFlexGrid1->setGrid(departSubjectList(data(), treeCode_));
  MSFlexGrid1->fitColumns();
}

void FrmDepartPzCode::showDetails(const std::string& code) {
  current_ = code == kRootCode ? DepartSubject{} : readDepartSubject(data(), code).value_or(DepartSubject{});
  LblBMBM1->setText(toQt(current_.firstPart));
  LblBMBM2->setText(toQt(current_.code).mid(LblBMBM1->text().size()));
  LblBMMC->setText(toQt(current_.name));
  LblSJMC->setText(toQt(current_.parentName));
  LblZJKM->setText(toQt(current_.subject));
  setEditing(false);
}

/// The subject is typed into a field that stands in the place of its label.
void FrmDepartPzCode::setEditing(bool editing) {
  editing_ = editing;
  TvLeft->setEnabled(!editing);
  MSFlexGrid1->setEnabled(!editing);
  LblZJKM->setVisible(!editing);
  TxtGDZCDZKM->setVisible(editing);
  CmdGDZCDZKM->setVisible(editing);
  enableCommands();
  if (!editing) return;
  SSTab1->setCurrentIndex(kDetailTab);
  TxtGDZCDZKM->setText(toQt(subjectCodeOf(current_.subject)));
  TxtGDZCDZKM->setFocus();
}

bool FrmDepartPzCode::enterPressed(QObject* control) {
  if (control != TxtGDZCDZKM || !editing_) return false;
  save(SavedBy::EnterKey);
  return true;
}

void FrmDepartPzCode::save(SavedBy way) {
  const std::string text = fromQt(TxtGDZCDZKM->text());
  if (text.empty()) {
    clearDepartSubject(data(), current_.code);
    return showStored();
  }
  const auto subject = findDetailSubject(data(), subjectCodeOf(text));
  if (!subject) {
    run().dialogs.MsgBox(std::string(kDepartSubjectUnknownText), Buttons::Ok, Icon::Critical, kTitle);
    return returnTo(*TxtGDZCDZKM);
  }
  SubjectReach reach = SubjectReach::DepartAlone;
  if (way == SavedBy::Command && hasDepartsBelow(data(), current_.code)) {
    const Answer answer = run().dialogs.MsgBox(departSubjectQuestion(current_.name, subject->code),
                                               Buttons::YesNo, Icon::Question, kTitle);
    if (answer != Answer::Yes) return setEditing(false);
    reach = SubjectReach::AllBelow;
  }
  storeDepartSubject(data(), current_.code, *subject, reach);
  showStored();
}

void FrmDepartPzCode::showStored() {
  reload();
  TvLeft->setFocus();
}

void FrmDepartPzCode::cancel() {
  const Answer answer = run().dialogs.MsgBox("是否取消本次操作?", Buttons::YesNo, Icon::Question, kTitle);
  if (answer == Answer::Yes) setEditing(false);
}

}  // namespace zelkor
