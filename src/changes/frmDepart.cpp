#include "changes/frmDepart.h"

#include <array>
#include <QBoxLayout>
#include <QHeaderView>
#include <QRegularExpressionValidator>

#include "archives/FrmFATypes.h"
#include "base/Conversion.h"
#include "base/Text.h"
#include "changes/frmProject.h"
#include "changes/SplitDeparts.h"
#include "store/settings/SubjectText.h"
#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kHeaderRows = 1;
constexpr std::size_t kLeastDeparts = 2;
enum Column : std::size_t { kNumber, kDepart, kScale, kSubject, kItemClass, kProject };
constexpr std::array kWidths = {650, 2700, 1300, 3000, 1100, 2900};

std::string codeAndName(const std::string& code, const std::string& name) {
  return code.empty() ? std::string() : code + "," + name;
}

std::vector<std::string> cellsOf(std::size_t number, const SplitRow& row) {
  return {std::to_string(number),
          codeAndName(row.departCode, row.departName),
          row.scale,
          row.subject,
          row.itemClass,
          row.project};
}

}  // namespace

frmDepart::frmDepart(FormHost& host) : Form(host, "frmDepart", "使用部门", Unload::Plain) {
  editor_->nameControls("txtEdit", "cmdScanf");
  arrangeControls();
  connectEvents();
  rows_.resize(kLeastDeparts);
  showRows();
  MSFl1->selectCell(kHeaderRows, kDepart);
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
     [this](std::size_t row) { edit(row, MSFl1->currentGridColumn().value_or(kDepart)); });
  on(editor_, &CellEditor::committed, &frmDepart::take);
  on(editor_, &CellEditor::entered, &frmDepart::editBehind);
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
  TextGrid grid;
  grid.setHeader("序号|使用部门|使用比例(%)|对应折旧科目|项目大类|对应项目");
  for (std::size_t i = 0; i < kWidths.size(); ++i) grid.setColumnWidth(i, kWidths[i]);
  grid.setAlignment(kNumber, Align::Center);
  grid.setAlignment(kScale, Align::Right);
  for (std::size_t i = 0; i < rows_.size(); ++i) grid.addRow(cellsOf(i + 1, rows_[i]));
  MSFl1->setGrid(std::move(grid));
  showTotal();
}

void frmDepart::showRow(std::size_t row) {
  const auto cells = cellsOf(row, at(row));
  for (std::size_t column = 0; column < cells.size(); ++column) MSFl1->setText(row, column, cells[column]);
  showTotal();
}

void frmDepart::showTotal() {
  double total = 0;
  for (const SplitRow& row : rows_) total += Val(row.scale);
  lblTotal->setText("比例合计：" + toQt(textOfDouble(total)) + "%");
}

void frmDepart::edit(std::size_t row, std::size_t column) {
  static const QRegularExpressionValidator percent(QRegularExpression("[0-9]{0,3}"));
  MSFl1->selectCell(row, column);
  if (column == kNumber) return;
  if (column == kScale) {
    editor_->editText(row, column, &percent);
  } else {
    editor_->editWithButton(row, column);
  }
}

/// Goes on with the next cell; the project class comes with the project.
void frmDepart::editBehind(std::size_t row, std::size_t column) {
  if (column < kProject) return edit(row, column == kSubject ? kProject : column + 1);
  if (row + 1 < MSFl1->grid().rows()) return edit(row + 1, kDepart);
  cmdOK->setFocus();
}

void frmDepart::take(std::size_t row, std::size_t column, const QString& text) {
  const std::string typed = Trim(fromQt(text));
  SplitRow& depart = at(row);
  if (column == kDepart) takeDepartment(row, typed);
  if (column == kScale) depart.scale = typed;
  if (column == kSubject) depart.subject = lookUpSubject(data(), typed).value_or("");
  if (column == kItemClass) depart.itemClass = typed;
  if (column == kProject && typed.empty()) depart.project = depart.itemClass = "";
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

void frmDepart::takeProject(std::size_t row) {
  frmProject picker(host());
  host().showModal(picker);
  const PickedProject& picked = picker.picked();
  if (picked.code.empty()) return;
  at(row).itemClass = picked.classNumber;
  at(row).project = codeAndName(picked.code, picked.name);
}

void frmDepart::cmdScanf_Click(std::size_t row, std::size_t column) {
  editor_->cancel();
  if (column == kDepart) {
    const auto picked = pickFromArchive(host(), ArchiveKind::Departments, at(row).departCode);
    if (picked) takeDepartment(row, picked->value);
  } else if (column == kSubject) {
    frmPZCode picker(host());
    host().showModal(picker);
    const PickedSubject picked = picker.picked();
    if (!picked.code.empty()) at(row).subject = codeAndName(picked.code, picked.name);
  } else {
    takeProject(row);
  }
  showRow(row);
  edit(row, column);
}

void frmDepart::cmdAdd_Click() {
  editor_->commit();
  if (rows_.size() >= mostSplitDeparts) return;
  rows_.emplace_back();
  showRows();
  edit(rows_.size() - 1 + kHeaderRows, kDepart);
}

void frmDepart::cmdDel_Click() {
  editor_->cancel();
  const auto row = MSFl1->currentGridRow();
  if (!row) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*row - kHeaderRows));
  showRows();
  if (!rows_.empty()) MSFl1->selectCell(std::min(*row, rows_.size()), kDepart);
}

void frmDepart::cmdOK_Click() {
  editor_->commit();
  DepartSplit confirmed;
  if (const auto refusal = confirmSplit(rows_, confirmed)) {
    run().dialogs.MsgBox(*refusal);
    return;
  }
  split_ = std::move(confirmed);
  close();
}

}  // namespace zelkor
