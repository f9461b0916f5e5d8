#include "archives/FrmDepartment.h"

#include <QAction>
#include <QBoxLayout>
#include <QSignalBlocker>

#include "archives/CodingRule.h"
#include "archives/DepartArchive.h"
#include "archives/DepartCheck.h"
#include "archives/FrmAllPerson.h"
#include "base/Text.h"
#include "ui/Focus.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

}  // namespace

FrmDepartment::FrmDepartment(FormHost& host)
    : Form(host, "FrmDepartment", "部门档案", Unload::Plain), departs_(run().engine) {
  departs_.setZkDataPath(run().gOpArgs.ZkDataPath());
  arrangeControls();
  std::int32_t lastLength = 0;
  pattern_ = departs_.GetDepartCodingRule(lastLength);
  LblCodeSet->setText("编码原则： " + toQt(pattern_));
  connectEvents();
  reload();
  unlock(false);
}

void FrmDepartment::arrangeControls() {
  arrangeCommands();
  dressTree(*TvLeft);
  dressPick(CmdFindPerson, TxtEdit[Person]);
  TxtEdit[Person]->setProperty("picked", true);
  LblState->setProperty("title", true);
  auto* details = column({row({LblState, stretch(), LblCodeSet}), space(4),
                          row({fields({{"部门编码：", TxtEdit[Code]},
                                       {"部门名称：", TxtEdit[Name]},
                                       {"负责人：", row({wide(TxtEdit[Person]), CmdFindPerson})},
                                       {"部门属性：", TxtEdit[Property]},
                                       {"电话：", TxtEdit[Phone]},
                                       {"地址：", TxtEdit[Address]},
                                       {"备注：", TxtEdit[Memo]}}),
                               space(12)}),
                          stretch()});
  details->setContentsMargins(12, 0, 0, 0);
  arrangeScreen(this, Toolbar1, row({wide(panes(TvLeft, 280, page(details), 460))}));
  resize(800, 520);
}

void FrmDepartment::arrangeCommands() {
  setCommands(Toolbar1, {{"增加", &FrmDepartment::add},
                         {"删除", &FrmDepartment::remove, &FrmDepartment::onStoredOne},
                         {"修改", &FrmDepartment::edit, &FrmDepartment::onStoredOne},
                         {},
                         {"恢复", &FrmDepartment::restore, [this] { return unlocked_; }},
                         {"保存", &FrmDepartment::save, [this] { return dirty_; }},
                         {},
                         {"刷新", &FrmDepartment::refresh},
                         {},
                         {"退出", &FrmDepartment::close}});
}

void FrmDepartment::connectEvents() {
  on(TvLeft, &QTreeWidget::currentItemChanged, &FrmDepartment::TvLeft_NodeClick);
  for (QLineEdit* field : TxtEdit) on(field, &QLineEdit::textChanged, &FrmDepartment::TxtEdit_Change);
  on(CmdFindPerson, &QPushButton::clicked, &FrmDepartment::CmdFindPerson_Click);
}

std::string FrmDepartment::selectedCode() const {
  const QTreeWidgetItem* item = TvLeft->currentItem();
  return item ? fromQt(tagOf(*item)) : std::string();
}

/// Reads the archive again; the department that was selected stays selected if it is still there.
void FrmDepartment::reload() {
  const QString selected = toQt(selectedCode());
  {
    const QSignalBlocker quiet(TvLeft);
    loadTree(*TvLeft, departTree(departs_));
    TvLeft->expandAll();
    QTreeWidgetItem* item = findByKey(*TvLeft, "D" + selected);
    TvLeft->setCurrentItem(item ? item : TvLeft->topLevelItem(0));
  }
  show(selectedCode());
}

void FrmDepartment::show(const std::string& code) {
  adding_ = false;
  fill(readDepart(departs_, code).value_or(DepartRecord{}));
}

void FrmDepartment::fill(const DepartRecord& depart) {
  filling_ = true;
  const std::string texts[Fields] = {depart.code,     depart.name,  departs_.GetPersonName(depart.person),
                                     depart.property, depart.phone, depart.address,
                                     depart.memo};
  for (std::size_t i = 0; i < Fields; ++i) TxtEdit[i]->setText(toQt(texts[i]));
  person_ = depart.person;
  filling_ = false;
  dirty_ = false;
  enableCommands();
}

void FrmDepartment::unlock(bool unlocked) {
  unlocked_ = unlocked;
  for (QLineEdit* field : TxtEdit) field->setReadOnly(!unlocked);
  // A name that is typed is nobody's code: it goes to the picker, which its letters must reach.
  TxtEdit[Person]->setAttribute(Qt::WA_InputMethodEnabled, false);
  CmdFindPerson->setEnabled(unlocked);
  LblState->setText(!unlocked ? "部门" : adding_ ? "正在增加部门" : "正在修改部门");
  enableCommands();
}

bool FrmDepartment::onStoredOne() const {
  return TvLeft->currentItem() && !adding_;
}

void FrmDepartment::refresh() {
  reload();
  unlock(TvLeft->currentItem() != nullptr);
}

void FrmDepartment::TvLeft_NodeClick() {
  QTreeWidgetItem* clicked = TvLeft->currentItem();
  if (dirty_) {
    const Answer answer =
        run().dialogs.MsgBox("部门档案信息已修改，保存修改结果吗？", Buttons::YesNo, Icon::Question, "提示!");
    if (answer == Answer::Yes) save();
    const QSignalBlocker quiet(TvLeft);
    TvLeft->setCurrentItem(clicked);  // saving a new department has gone to it
  }
  show(selectedCode());
  unlock(false);
}

void FrmDepartment::TxtEdit_Change() {
  if (filling_) return;
  dirty_ = true;
  enableCommands();
}

void FrmDepartment::add() {
  fill({});
  adding_ = true;
  unlock(true);
  TxtEdit[Code]->setFocus();
}

void FrmDepartment::edit() {
  show(selectedCode());
  unlock(true);
  TxtEdit[Name]->setFocus();
}

void FrmDepartment::restore() {
  show(selectedCode());
  unlock(false);
}

DepartRecord FrmDepartment::entered() const {
  DepartRecord depart;
  depart.code = fromQt(TxtEdit[Code]->text());
  depart.name = fromQt(TxtEdit[Name]->text());
  const bool cleared = TxtEdit[Person]->text().isEmpty() && TxtEdit[Person]->isModified();
  if (!cleared) depart.person = person_;  // a person who is not among the staff has no name to be shown
  depart.property = fromQt(TxtEdit[Property]->text());
  depart.phone = fromQt(TxtEdit[Phone]->text());
  depart.address = fromQt(TxtEdit[Address]->text());
  depart.memo = fromQt(TxtEdit[Memo]->text());
  return depart;
}

void FrmDepartment::save() {
  DepartRecord depart = entered();
  const DepartSaving saving = adding_ ? DepartSaving::New : DepartSaving::Existing;
  const DepartCheck check = checkDepart(depart, saving, pattern_, [this](const std::string& code) {
    return findByKey(*TvLeft, "D" + toQt(code)) != nullptr;
  });
  if (!check.refusal.empty()) {
    run().dialogs.MsgBox(std::string(check.refusal), Buttons::Ok, Icon::Exclamation,
                         std::string(kDepartBoxTitle));
    return returnTo(*TxtEdit[depart.name.empty() ? Name : Code]);
  }
  depart.level = check.level;
  if (!departs_.UpdateDepart(depart, saving)) return;
  UpdateTvLeft(depart);
  adding_ = false;
  dirty_ = false;
  unlock(false);
  TvLeft->setFocus();
}

/// Hangs a new department below its parent, or rewrites the text of one that is there.
void FrmDepartment::UpdateTvLeft(const DepartRecord& depart) {
  const std::string text = "(" + depart.code + ")" + depart.name;
  if (QTreeWidgetItem* item = findByKey(*TvLeft, "D" + toQt(depart.code))) {
    item->setText(0, toQt(text));
    return;
  }
  const auto level = ChkIsCodingRule(depart.code, pattern_);
  const std::string parent = Left(depart.code, level ? level->parentLength : 0);
  QTreeWidgetItem* above = parent.empty() ? nullptr : findByKey(*TvLeft, "D" + toQt(parent));
  QTreeWidgetItem* added = addTreeRow(above ? *above : *TvLeft->invisibleRootItem(),
                                      {"D" + depart.code, "D" + parent, text, depart.code});
  if (above) above->setExpanded(true);
  const QSignalBlocker quiet(TvLeft);
  TvLeft->setCurrentItem(added);
}

void FrmDepartment::remove() {
  QTreeWidgetItem* item = TvLeft->currentItem();
  if (!item) return;
  const std::string title(kDepartBoxTitle);
  if (item->childCount() > 0) {
    run().dialogs.MsgBox("不能删除存在有下级部门的部门！", Buttons::Ok, Icon::Exclamation, title);
    return;
  }
  if (run().dialogs.MsgBox("确实要删除选中的部门吗？", Buttons::YesNo, Icon::Question, title) != Answer::Yes)
    return;
  if (!departs_.DeleteDepart(selectedCode())) return;
  dirty_ = false;
  {
    const QSignalBlocker quiet(TvLeft);
    QTreeWidgetItem* next = TvLeft->itemBelow(item);
    if (!next) next = TvLeft->itemAbove(item);
    TvLeft->setCurrentItem(next);
    delete item;  // leaves the tree with it
  }
  restore();
}

void FrmDepartment::CmdFindPerson_Click() {
  const Recordset persons = departs_.GetAllPersons();
  if (!persons.isOpen()) return;
  FrmAllPerson picker(host());
  picker.setAllPerson(persons);
  host().showModal(picker);
  if (!picker.SelectPerson()) return;
  TxtEdit[Person]->setText(toQt(picker.SelectPerson()->Name()));
  person_ = picker.SelectPerson()->code();
}

}  // namespace zelkor
