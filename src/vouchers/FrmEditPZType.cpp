#include "vouchers/FrmEditPZType.h"

#include <algorithm>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>

#include "ui/Icons.h"
#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kDown = 0;
constexpr std::size_t kUp = 1;

QStringList limitEntries() {
  QStringList entries;
  for (const std::string_view kind : kLimitKinds) entries << toQt(kind);
  return entries;
}

}  // namespace

FrmEditPZType::FrmEditPZType(FormHost& host, ClsBLLPZType& BLLPZType)
    : Form(host, "FrmEditPZType", "凭证类别", Unload::Plain), BLLPZType_(BLLPZType), table_(BLLPZType) {
  arrangeControls();
  GridDsign->setGrid(table_.grid());
  GridDsign->horizontalHeader()->setStretchLastSection(true);
  connectEvents();
}

void FrmEditPZType::arrangeControls() {
  setCommands(
      Toolbar1,
      {{"增加", &FrmEditPZType::add}, {"删除", &FrmEditPZType::remove}, {}, {"退出", &FrmEditPZType::leave}});
  editor_->nameControls("TxtEdit", "CmdFind");
  editor_->findChild<QComboBox*>()->setObjectName("ComboDsignType");
  for (const auto& [index, caption] : {std::pair(kDown, "下移"), std::pair(kUp, "上移")}) {
    CmdSort[index]->setText(caption);
    CmdSort[index]->setIcon(commandIcon(caption));
  }
  arrangeScreen(this, Toolbar1,
                column({row({wide(GridDsign), column({CmdSort[kUp], CmdSort[kDown], stretch()})}),
                        note("注意：凭证类别的排序顺序将影响到账簿查询中凭证类别的排序顺序")}));
  resize(820, 440);
}

void FrmEditPZType::connectEvents() {
  on(GridDsign, &FlexGrid::clicked,
     [this] { editCell(GridDsign->currentGridRow().value(), GridDsign->currentGridColumn().value()); });
  on(GridDsign, &FlexGrid::rowOpened,
     [this](std::size_t row) { editCell(row, GridDsign->currentGridColumn().value_or(type_column::Sign)); });
  on(GridDsign, &FlexGrid::rowSelected, &FrmEditPZType::changeRow);
  editor_->setColumns({type_column::Sign, type_column::Name, type_column::Limit, type_column::Codes});
  on(editor_, &CellEditor::requested, &FrmEditPZType::editCell);
  on(editor_, &CellEditor::ended, &FrmEditPZType::leaveCell);
  on(editor_, &CellEditor::entered, &FrmEditPZType::moveOn);
  on(editor_, &CellEditor::buttonPressed, [this] { CmdFind_Click(); });
  on(editor_->findChild<QComboBox*>(), &QComboBox::activated, &FrmEditPZType::ComboDsignType_Click);
  on(CmdSort[kDown], &QPushButton::clicked, [this] {
    if (currentRow_ && leaveEditor()) move(table_.moveDown(*currentRow_), *currentRow_ + 1);
  });
  on(CmdSort[kUp], &QPushButton::clicked, [this] {
    if (currentRow_ && leaveEditor()) move(table_.moveUp(*currentRow_), *currentRow_ - 1);
  });
}

void FrmEditPZType::leave() {
  editor_->cancel();
  close();
}

void FrmEditPZType::showTable(std::optional<std::size_t> row) {
  currentRow_ = row;
  GridDsign->setGrid(table_.grid());
  if (row) GridDsign->selectCell(*row, type_column::Sign);
}

void FrmEditPZType::refuse(const std::string& text) {
  run().dialogs.MsgBox(text, Buttons::Ok, Icon::Information, "提示");
}

void FrmEditPZType::add() {
  if (!leaveEditor() || !leaveRow()) return;
  const std::size_t row = table_.add();
  showTable(row);
  editCell(row, type_column::Sign);
}

void FrmEditPZType::remove() {
  editor_->cancel();
  if (!currentRow_) return;
  const Answer answer =
      run().dialogs.MsgBox("删除当前选定的凭证吗？", Buttons::YesNo, Icon::Question, "提示");
  if (answer != Answer::Yes || !table_.remove(*currentRow_)) return;
  changed_ = false;
  const std::size_t last = table_.grid().rows() - 1;
  showTable(last == 0 ? std::nullopt : std::optional(std::min(*currentRow_, last)));
}

/// The row that has moved stays the current one.
void FrmEditPZType::move(bool moved, std::size_t to) {
  if (moved) showTable(to);
}

void FrmEditPZType::editCell(std::size_t row, std::size_t column) {
  if (!leaveEditor()) return;
  if (row != currentRow_) return;  // the row that was to be left has kept the person
  refused_.reset();
  if (column == type_column::Limit) {
    editor_->editChoice(row, column, limitEntries());
  } else if (column == type_column::Codes) {
    editor_->editWithButton(row, column);
  } else {
    editor_->editText(row, column);
  }
}

void FrmEditPZType::leaveCell(std::size_t row, std::size_t column, const QString& text) {
  refused_.reset();
  if (const auto refusal = table_.checkCell(row, column, fromQt(text))) {
    refuse(*refusal);
    if (column != type_column::Codes) return stayIn(row, column, text);
  }
  if (table_.grid().text(row, column) == fromQt(text)) return;
  table_.setText(row, column, fromQt(text));
  GridDsign->setText(row, column, fromQt(text));
  changed_ = true;
}

/// A choice counts as a change even when it is what is there: the row is stored again, and "凭证必无"
/// reads as another kind then.
void FrmEditPZType::ComboDsignType_Click() {
  leaveCell(*currentRow_, type_column::Limit, editor_->text());
  changed_ = true;
}

void FrmEditPZType::stayIn(std::size_t row, std::size_t column, const QString& text) {
  GridDsign->selectCell(row, column);
  editor_->editText(row, column);
  editor_->setText(text);
  refused_ = text;
}

/// Enter leads through the cells and on to the next row.
void FrmEditPZType::moveOn(std::size_t row, std::size_t column) {
  editor_->goOn(row, column);
}

/// True when no editor is open any more. What was refused once is not reported again as long as it is there.
bool FrmEditPZType::leaveEditor() {
  if (editor_->isOpen() && refused_ != editor_->text()) editor_->commit();
  return !editor_->isOpen();
}

void FrmEditPZType::CmdFind_Click() {
  frmPZCode picker(host(), run().engine.OpenDatabase(BLLPZType_.ZkDataPath()));
  picker.showSubject(editor_->text().section(',', -1));
  host().showModal(picker);
  const std::string& code = picker.picked().code;
  if (code.empty()) return;
  editor_->setText(toQt(withLimitCode(fromQt(editor_->text()), code)));
  editor_->findChild<QLineEdit*>()->end(false);  // after it another one may be typed
}

/// Another row has become the current one of the grid.
void FrmEditPZType::changeRow(std::size_t row) {
  if (row == currentRow_) return;
  const auto column = GridDsign->currentGridColumn().value_or(type_column::Sign);
  if (!leaveEditor()) return GridDsign->selectGridRow(*currentRow_);
  if (!leaveRow()) return;
  currentRow_ = row;
  GridDsign->selectCell(row, column);
}

/// Stores the current row if it was changed; false when it keeps the person.
bool FrmEditPZType::leaveRow() {
  if (!currentRow_ || !changed_) return true;
  const std::size_t row = *currentRow_;
  if (const auto refusal = table_.checkRow(row)) {
    refuse(*refusal);
    GridDsign->selectCell(row, type_column::Codes);
    editCell(row, type_column::Codes);
    return false;
  }
  table_.save(row);
  changed_ = false;
  return true;
}

}  // namespace zelkor
