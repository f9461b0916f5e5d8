#include "changes/frmDepart.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QRegularExpressionValidator>
#include <utility>

#include "archives/FrmFATypes.h"
#include "base/Text.h"
#include "changes/frmProject.h"
#include "changes/SplitDeparts.h"
#include "changes/SplitGrid.h"
#include "store/settings/SubjectText.h"
#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

using namespace layout;
using namespace split_column;

constexpr std::size_t kHeaderRows = 1;
constexpr std::size_t kLeastDeparts = 2;

}  // namespace

frmDepart::frmDepart(FormHost& host) : Form(host, "frmDepart", "使用部门", Unload::Plain) {
  editor_->nameControls("txtEdit", "cmdScanf");
  arrangeControls();
  connectEvents();
  rows_.resize(kLeastDeparts);
  showRows();
  MSFl1->selectCell(kHeaderRows, Depart);
}

void frmDepart::arrangeControls() {
  cmdAdd->setToolTip("增加一个部门 (Insert)");
  cmdAdd->setShortcut(Qt::Key_Insert);
  cmdDel->setToolTip("删除所选的部门 (Ctrl+Delete)");
  cmdDel->setShortcut(Qt::CTRL | Qt::Key_Delete);
  MSFl1->horizontalHeader()->setStretchLastSection(true);
  MSFl1->setSelectionBehavior(QAbstractItemView::SelectItems);
  arrange(this, column({wide(MSFl1), row({note("使用部门有效数量范围：2~20个"), stretch(), lblTotal}),
                        row({cmdAdd, cmdDel, stretch(), cmdOK, cmdCancel})}));
  resize(860, 420);
}

void frmDepart::connectEvents() {
  on(MSFl1, &QTableView::clicked, [this](const QModelIndex& cell) {
    edit(static_cast<std::size_t>(cell.row()) + kHeaderRows, static_cast<std::size_t>(cell.column()));
  });
  on(MSFl1, &FlexGrid::rowOpened,
     [this](std::size_t row) { edit(row, MSFl1->currentGridColumn().value_or(Depart)); });
  on(editor_, &CellEditor::committed, &frmDepart::take);
  on(editor_, &CellEditor::entered, &frmDepart::editBehind);
  editor_->setColumns({Depart, Scale, Subject, Project});
  on(editor_, &CellEditor::requested, &frmDepart::edit);
  on(editor_, &CellEditor::passedEnd, [this] { cmdOK->setFocus(); });
  on(editor_, &CellEditor::seeking, [this](const QString& text) { host().seek(text); });
  on(editor_, &CellEditor::buttonPressed, &frmDepart::cmdScanf_Click);
  on(cmdAdd, &QPushButton::clicked, &frmDepart::cmdAdd_Click);
  on(cmdDel, &QPushButton::clicked, &frmDepart::cmdDel_Click);
  on(cmdOK, &QPushButton::clicked, &frmDepart::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
}

SplitRow& frmDepart::at(std::size_t row) {
  return rows_.at(row - kHeaderRows);
}

void frmDepart::showRows() {
  MSFl1->setGrid(splitGrid(rows_));
  lblTotal->setText(toQt(splitTotalText(rows_)));
}

void frmDepart::showRow(std::size_t row) {
  const auto cells = splitCells(row, at(row));
  for (std::size_t column = 0; column < cells.size(); ++column) MSFl1->setText(row, column, cells[column]);
  lblTotal->setText(toQt(splitTotalText(rows_)));
}

void frmDepart::edit(std::size_t row, std::size_t column) {
  static const QRegularExpressionValidator percent(QRegularExpression("[0-9]{0,3}"));
  MSFl1->selectCell(row, column);
  if (column == Number) return;
  if (column == Scale) {
    editor_->editText(row, column, &percent);
  } else if (column == Project) {
    editor_->editPicked(row, column, CellEditor::Emptying::Allowed);
  } else {
    editor_->editWithButton(row, column);
  }
}

/// Goes on with the next cell; the project class comes with the project. A text that was refused comes up
/// again.
void frmDepart::editBehind(std::size_t row, std::size_t column) {
  if (!std::exchange(refused_, false)) return editor_->goOn(row, column);
  edit(row, column);
}

void frmDepart::take(std::size_t row, std::size_t column, const QString& text) {
  const std::string typed = Trim(fromQt(text));
  SplitRow& depart = at(row);
  if (column == Depart) takeDepartment(row, typed);
  if (column == Scale) depart.scale = typed;
  if (column == Subject) depart.subject = lookUpSubject(data(), typed).value_or("");
  if (column == ItemClass) depart.itemClass = typed;
  if (column == Project && typed.empty()) depart.project = depart.itemClass = "";
  refused_ = !typed.empty() && ((column == Depart && depart.departCode.empty()) ||
                                (column == Subject && depart.subject.empty()));
  showRow(row);
}

/// A text that names no department leaves the cell empty.
void frmDepart::takeDepartment(std::size_t row, const std::string& typed) {
  const auto found = leafDepartment(data(), typed);
  if (found) {
    if (const auto refusal = departRepeated(rows_, row - kHeaderRows, found->code)) {
      run().dialogs.MsgBox(*refusal);
      return;
    }
  }
  at(row).departCode = found ? found->code : "";
  at(row).departName = found ? found->name : "";
}

bool frmDepart::takeProject(std::size_t row) {
  frmProject picker(host());
  host().showModal(picker);
  const PickedProject& picked = picker.picked();
  if (picked.code.empty()) return false;
  at(row).itemClass = picked.classNumber;
  at(row).project = codeAndName(picked.code, picked.name);
  return true;
}

void frmDepart::cmdScanf_Click(std::size_t row, std::size_t column) {
  editor_->cancel();
  const bool picked = pickInto(row, column);
  showRow(row);
  if (picked) {
    editor_->goOn(row, column);
  } else {
    edit(row, column);
  }
}

/// True when something has come into the cell.
bool frmDepart::pickInto(std::size_t row, std::size_t column) {
  if (column == Depart) {
    const auto picked = pickFromArchive(host(), ArchiveKind::Departments, at(row).departCode);
    if (picked) takeDepartment(row, picked->value);
    return picked && at(row).departCode == picked->value;
  }
  if (column != Subject) return takeProject(row);
  frmPZCode picker(host());
  picker.showSubject(toQt(at(row).subject));
  host().showModal(picker);
  const PickedSubject picked = picker.picked();
  if (picked.code.empty()) return false;
  at(row).subject = codeAndName(picked.code, picked.name);
  return true;
}

void frmDepart::cmdAdd_Click() {
  editor_->commit();
  if (rows_.size() >= kMostSplitDeparts) return;
  rows_.emplace_back();
  showRows();
  edit(rows_.size() - 1 + kHeaderRows, Depart);
}

void frmDepart::cmdDel_Click() {
  editor_->cancel();
  const auto row = MSFl1->currentGridRow();
  if (!row) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*row - kHeaderRows));
  showRows();
  if (!rows_.empty()) MSFl1->selectCell(std::min(*row, rows_.size()), Depart);
}

void frmDepart::askForMissing() {
  for (std::size_t row = kHeaderRows; row < MSFl1->grid().rows(); ++row) {
    if (at(row).departCode.empty()) return edit(row, Depart);
    if (at(row).scale.empty()) return edit(row, Scale);
  }
}

void frmDepart::cmdOK_Click() {
  editor_->commit();
  DepartSplit confirmed;
  if (const auto refusal = confirmSplit(rows_, confirmed)) {
    run().dialogs.MsgBox(*refusal);
    return askForMissing();
  }
  split_ = std::move(confirmed);
  close();
}

}  // namespace zelkor
