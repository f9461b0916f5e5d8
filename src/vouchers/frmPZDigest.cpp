#include "vouchers/frmPZDigest.h"

#include <algorithm>
#include <QLineEdit>
#include <QPushButton>

#include "ui/Icons.h"
#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

constexpr std::size_t kCodeColumn = 0;
constexpr std::size_t kTextColumn = 1;
constexpr std::size_t kSubjectColumn = 2;
constexpr int kWidths[] = {1700, 7500, 2500};  // twips

/// The cell in which what is refused can be put right.
std::size_t columnOf(DigestRefusal refusal) {
  switch (refusal) {
    case DigestRefusal::WithoutText:
      return kTextColumn;
    case DigestRefusal::UnknownSubject:
      return kSubjectColumn;
    default:
      return kCodeColumn;
  }
}

}  // namespace

frmPZDigest::frmPZDigest(FormHost& host)
    : Form(host, "frmPZDigest", "常用摘要", Unload::Plain), digests_(data()) {
  arrangeControls();
  arrangeMenu();
  on(MSFlexGrid1, &FlexGrid::clicked,
     [this] { editCell(MSFlexGrid1->currentGridRow().value(), MSFlexGrid1->currentGridColumn().value()); });
  on(MSFlexGrid1, &FlexGrid::rowOpened,
     [this](std::size_t row) { editCell(row, MSFlexGrid1->currentGridColumn().value_or(kCodeColumn)); });
  TxtAdd->setColumns({kCodeColumn, kTextColumn, kSubjectColumn});
  on(TxtAdd, &CellEditor::requested, &frmPZDigest::editCell);
  on(TxtAdd, &CellEditor::committed, &frmPZDigest::keepEdit);
  on(TxtAdd, &CellEditor::entered, &frmPZDigest::moveOn);
  on(TxtAdd, &CellEditor::buttonPressed, &frmPZDigest::CmdCodeView_Click);
  TextGrid grid = digests_.grid();
  for (std::size_t i = 0; i < std::size(kWidths); ++i) grid.setColumnWidth(i, kWidths[i]);
  MSFlexGrid1->setGrid(std::move(grid));
  MSFlexGrid1->fillWith(kTextColumn);
}

void frmPZDigest::arrangeControls() {
  setCommands(CmdArray,
              {{{"设置", "CmdArray0"}},
               {{"打印", "CmdArray1"}},
               {{"预览", "CmdArray2"}},
               {{"输出", "CmdArray3"}},
               {},
               {{"增加", "CmdArray4"}, &frmPZDigest::add},
               {{"删除", "CmdArray5"}, &frmPZDigest::remove},
               {},
               {{"选入", "CmdArray7"}, &frmPZDigest::takeOver},
               {},
               {{"帮助", "CmdArray8"}},
               {{"退出", "CmdArray9"}, &frmPZDigest::leave}},
              [this] { endEdit(); });
  TxtAdd->findChild<QLineEdit*>()->setObjectName("TxtAdd");
  TxtAdd->findChild<QPushButton*>()->setObjectName("CmdCodeView");
  layout::arrangeScreen(this, CmdArray, layout::row({layout::wide(MSFlexGrid1)}));
  resize(820, 460);
}

void frmPZDigest::arrangeMenu() {
  addCommands(mnu_pop,
              {{{"增加", "mnu_popAdd"}, &frmPZDigest::add},
               {{"删除", "mnu_popDel"}, &frmPZDigest::remove},
               {{"选入", "mnu_popxr"}, &frmPZDigest::takeOver}},
              [this] { endEdit(); });
  for (QAction* entry : mnu_pop->actions()) entry->setIcon(commandIcon(entry->text()));
  MSFlexGrid1->setContextMenuPolicy(Qt::CustomContextMenu);
  on(MSFlexGrid1, &FlexGrid::customContextMenuRequested,
     [this](const QPoint& at) { mnu_pop->popup(MSFlexGrid1->viewport()->mapToGlobal(at)); });
}

void frmPZDigest::leave() {
  leaveNewRow();
  close();
}

/// A new row in which nothing stands is given up where another command follows.
bool frmPZDigest::leaveNewRow() {
  if (newRow_ && digestIn(*newRow_).isEmpty()) {
    const std::size_t row = *newRow_;
    newRow_.reset();
    removeRow(row);
  }
  return storeNewRow();
}

void frmPZDigest::add() {
  if (!leaveNewRow()) return;
  TextGrid more;
  more.addRow({"", "", ""});
  MSFlexGrid1->addRows(std::move(more));
  newRow_ = MSFlexGrid1->grid().rows() - 1;
  MSFlexGrid1->selectCell(*newRow_, kCodeColumn);
  TxtAdd->editText(*newRow_, kCodeColumn);
}

void frmPZDigest::remove() {
  const auto row = MSFlexGrid1->currentGridRow();
  if (!row) return;
  const Answer answer =
      run().dialogs.MsgBox("是否真的删除此行常用摘要？", Buttons::YesNo, Icon::Question, "信息提示");
  if (answer != Answer::Yes) return;
  if (row == newRow_) {
    newRow_.reset();
  } else {
    digests_.remove(digestIn(*row).code);
  }
  removeRow(*row);
}

void frmPZDigest::takeOver() {
  const auto row = MSFlexGrid1->currentGridRow();
  if (!row || !leaveNewRow() || *row >= MSFlexGrid1->grid().rows()) return;
  chosen_ = digestIn(*row);
  close();
}

/// What was refused is not reported again as long as it is there.
void frmPZDigest::endEdit() {
  if (refused_ && TxtAdd->isOpen() && TxtAdd->text() == *refused_) TxtAdd->cancel();
  refused_.reset();
  TxtAdd->commit();
}

void frmPZDigest::editCell(std::size_t row, std::size_t column) {
  if (TxtAdd->isOpen()) endEdit();
  if (newRow_ && row != *newRow_ && !leaveNewRow()) return;
  if (column == kSubjectColumn) {
    TxtAdd->editWithButton(row, column);
  } else {
    TxtAdd->editText(row, column);
  }
}

/// An edit has ended with another text. Of a stored row the cell changes only with what is stored.
void frmPZDigest::keepEdit(std::size_t row, std::size_t column, const QString& text) {
  refused_.reset();
  if (row != newRow_) {
    Digest digest = digestIn(row);
    const std::string storedCode = digest.code;
    std::string& changed = column == kCodeColumn   ? digest.code
                           : column == kTextColumn ? digest.text
                                                   : digest.subject;
    changed = fromQt(text);
    if (const auto refusal = digests_.UpdateDigest(storedCode, digest)) {
      refused_ = text;
      return refuse(*refusal);
    }
  }
  MSFlexGrid1->setText(row, column, fromQt(text));
}

/// Enter leads through the cells, in a new row as far as it can be stored: its text is the last that it
/// needs. What was refused comes up again.
void frmPZDigest::moveOn(std::size_t row, std::size_t column) {
  if (refused_) {
    editCell(row, column);
    return TxtAdd->setText(*refused_);
  }
  if (row != newRow_) return TxtAdd->goOn(row, column);
  const auto refusal = digests_.refusalOfNew(digestIn(row));
  if (column == kCodeColumn && refusal == DigestRefusal::WithoutText) return editCell(row, kTextColumn);
  if (storeNewRow() && column == kTextColumn) editCell(row, kSubjectColumn);
}

/// True when no row is waiting to be stored any more. A refused one is left for editing.
bool frmPZDigest::storeNewRow() {
  if (!newRow_) return true;
  const std::size_t row = *newRow_;
  const auto refusal = digests_.add(digestIn(row));
  if (!refusal) {
    newRow_.reset();
    return true;
  }
  refuse(*refusal);
  editCell(row, columnOf(*refusal));
  return false;
}

void frmPZDigest::refuse(DigestRefusal refusal) {
  run().dialogs.MsgBox(std::string(messageOf(refusal)), Buttons::Ok, Icon::Information, "提示信息");
}

Digest frmPZDigest::digestIn(std::size_t row) const {
  const TextGrid& grid = MSFlexGrid1->grid();
  return {grid.text(row, kCodeColumn), grid.text(row, kTextColumn), grid.text(row, kSubjectColumn)};
}

void frmPZDigest::removeRow(std::size_t row) {
  TextGrid grid = MSFlexGrid1->grid();
  grid.removeRow(row);
  const std::size_t rows = grid.rows();
  MSFlexGrid1->setGrid(std::move(grid));
  if (rows > 1) MSFlexGrid1->selectGridRow(std::min(row, rows - 1));
}

/// Writes the code of the chosen subject into the cell that is being edited.
void frmPZDigest::CmdCodeView_Click(std::size_t row, std::size_t column) {
  frmPZCode picker(host());
  picker.showSubject(TxtAdd->text());
  host().showModal(picker);
  if (picker.picked().code.empty()) return;
  TxtAdd->setText(toQt(picker.picked().code));
  TxtAdd->commit();
  moveOn(row, column);
}

std::optional<Digest> pickDigest(FormHost& host) {
  frmPZDigest form(host);
  host.showModal(form);
  return form.chosen();
}

}  // namespace zelkor
