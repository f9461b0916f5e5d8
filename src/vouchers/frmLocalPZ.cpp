#include "vouchers/frmLocalPZ.h"

#include <algorithm>
#include <QHeaderView>
#include <utility>

#include "base/RuntimeError.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

QDate calendarDay(DateTime date) {
  return {date.year(), date.month(), date.day()};
}

}  // namespace

LocalPZ::LocalPZ(FormHost& host, QWidget* parent)
    : QFrame(parent), host_(host), box_(editor_->findChild<QLineEdit*>()) {
  arrangePaper();
  connectEvents();
  addMenu();
  showVoucher();
}

void LocalPZ::connectEvents() {
  on(lines_, &FlexGrid::rowOpened, [this] { openCell(currentCell()); });
  on(editor_, &CellEditor::committed, &LocalPZ::keep);
  on(editor_, &CellEditor::entered, &LocalPZ::moveOn);
  on(editor_, &CellEditor::buttonPressed, &LocalPZ::requestLookUp);
  on(date_, &QDateEdit::dateChanged, &LocalPZ::takeDate);
  on(attachments_, &QSpinBox::valueChanged, &LocalPZ::takeAttachments);
  on(signButton_, &QPushButton::clicked, &LocalPZ::browseSign);
  for (QWidget* watched :
       {static_cast<QWidget*>(lines_), static_cast<QWidget*>(box_), static_cast<QWidget*>(sign_),
        static_cast<QWidget*>(date_), static_cast<QWidget*>(attachments_)}) {
    watched->installEventFilter(this);
  }
}

void LocalPZ::showVoucher() {
  editor_->cancel();
  showHead();
  showLines();
  totals_->showTotals(*this);
}

void LocalPZ::showHead() {
  const QSignalBlocker quietDate(date_);
  const QSignalBlocker quietCount(attachments_);
  caption_->setText(toQt(Caption));
  sign_->setText(toQt(VoucherSign));
  signButton_->setEnabled(AllowBrowseSign);
  date_->setDate(calendarDay(VoucherDate));
  attachments_->setValue(Attachments);
  bookkeeper_->setText(toQt(Bookkeeper));
  checker_->setText(toQt(Checker));
  cashier_->setText(toQt(Cashier));
  billMaker_->setText(toQt(BillMaker));
  showState();
}

void LocalPZ::showState() {
  const bool cancelled = VoucherState == voucher_state::Cancelled;
  state_->setVisible(cancelled || VoucherState == voucher_state::Saved);
  state_->setText(cancelled ? "已作废" : "已保存");
  const QString ink = cancelled ? "#b3261e" : "#2e7d4f";
  state_->setStyleSheet("color: " + ink + "; border: 2px solid " + ink +
                        "; border-radius: 3px; padding: 2px 10px; font-weight: bold;");
}

/// The cell that was the current one stays it.
void LocalPZ::showLines() {
  const Cell current = currentCell();
  TextGrid grid = voucherGrid(*this);
  const std::size_t last = grid.rows() - 1;
  lines_->setGrid(std::move(grid));
  lines_->horizontalHeader()->setSectionResizeMode(Digest, QHeaderView::Stretch);
  lines_->selectCell(std::min(current.row, last), current.column);
  fillPaper();
}

/// Empty lines down to the foot of the sheet.
void LocalPZ::fillPaper() {
  const int height = lines_->viewport()->height();
  const int room = height / lines_->verticalHeader()->defaultSectionSize();
  TextGrid more;
  for (int rows = lines_->model()->rowCount(); rows > 0 && rows < room; ++rows) {
    more.addRow(std::vector<std::string>(kVoucherColumns));
  }
  if (more.rows() > 0) lines_->addRows(std::move(more));
}

void LocalPZ::showLine(std::size_t line) {
  if (line + 1 >= lines_->grid().rows()) {  // the last empty line has been written on
    TextGrid more;
    more.addRow(std::vector<std::string>(kVoucherColumns));
    lines_->addRows(std::move(more));
  }
  const std::vector<std::string> cells = voucherCells(Row(line));
  for (std::size_t column = 0; column < cells.size(); ++column) {
    lines_->setText(line, column, cells[column]);
  }
  totals_->showTotals(*this);
}

bool LocalPZ::mayEdit() {
  bool granted = true;
  emit EditRequest(&granted);
  showHead();
  return granted;
}

LocalPZ::Cell LocalPZ::currentCell() const {
  return {lines_->currentGridRow().value_or(1), lines_->currentGridColumn().value_or(Digest)};
}

void LocalPZ::showIncompleteLine() {
  for (std::size_t line = 1; line <= RowCount(); ++line) {
    const bool bare = Row(line).SubjectCode.empty();
    if (!bare && !Row(line).Digest.empty()) continue;
    lines_->selectCell(line, bare ? Subject : Digest);
    return lines_->setFocus();
  }
}

void LocalPZ::endTyping() {
  editor_->commit();
  for (QAbstractSpinBox* field :
       {static_cast<QAbstractSpinBox*>(date_), static_cast<QAbstractSpinBox*>(attachments_)}) {
    field->interpretText();
  }
}

void LocalPZ::openCell(Cell cell) {
  editor_->commit();
  offered_.clear();
  cell.row = std::min(cell.row, RowCount() + 1);
  if (!mayEdit()) return;
  opened_ = cell;
  lines_->selectCell(cell.row, cell.column);
  if (cell.column == Debit || cell.column == Credit) return editor_->editText(cell.row, cell.column, amount_);
  editor_->editWithButton(cell.row, cell.column);
  if (cell.row <= RowCount() && cell.column == Subject) {
    editor_->setText(toQt(Row(cell.row).SubjectCode));
    box_->selectAll();
  }
}

/// What was typed goes into the line; the first empty line becomes one of the voucher with it.
void LocalPZ::keep(std::size_t row, std::size_t column, const QString& text) {
  if (row > RowCount() && text == offered_) return;
  VoucherLine line = row <= RowCount() ? Row(row) : VoucherLine();
  const std::string typed = fromQt(text.trimmed());
  refused_ = false;
  if (column == Digest) line.Digest = typed;
  if (column == Subject && typed == line.SubjectCode) return;
  const bool amount = column == Debit || column == Credit;
  if (amount && !enterAmount(line, column == Debit ? VoucherSide::Debit : VoucherSide::Credit, typed)) return;
  if (row <= RowCount()) {
    Row(row) = std::move(line);
  } else {
    AddRow(std::move(line));
    row = RowCount();
  }
  if (column == Subject) {
    emit SubjectEntered(row, toQt(typed));
    refused_ = !typed.empty() && Row(row).SubjectName.empty();
  }
  showLine(row);
}

/// From the digest to the subject to the amount, then to the next line. A subject that was refused comes up
/// again, to be typed over.
void LocalPZ::moveOn(std::size_t row, std::size_t column) {
  if (std::exchange(refused_, false)) return openCell({row, column});
  if (row > RowCount() && !takeOffered(column)) return;
  const bool stands = column == Debit && Row(row).Debit != Currency();
  if (column == Credit || stands) return moveToNextLine(row, column);
  openCell({row, column + 1});
}

/// The digest of the line above that is offered in a new line counts once a person goes on from it.
bool LocalPZ::takeOffered(std::size_t column) {
  if (column != Digest || offered_.isEmpty() || box_->text() != offered_) return false;
  VoucherLine line;
  line.Digest = fromQt(offered_);
  AddRow(std::move(line));
  showLine(RowCount());
  return true;
}

/// Behind the last line a new one comes up as long as the voucher does not balance.
void LocalPZ::moveToNextLine(std::size_t row, std::size_t column) {
  const bool last = row == RowCount();
  if (last && totals_->balanced()) return lines_->selectCell(row, column);
  openCell({row + 1, Digest});
  if (!last || !editor_->isOpen()) return;
  offered_ = toQt(Row(row).Digest);
  editor_->setText(offered_);
  box_->selectAll();
}

void LocalPZ::moveBack(Cell from) {
  if (from.column > Digest) return openCell({from.row, from.column - 1});
  if (from.row > 1) openCell({from.row - 1, Credit});
}

void LocalPZ::insertHere() {
  editor_->commit();
  const std::size_t row = std::min(currentCell().row, RowCount() + 1);
  if (row > RowCount()) return openCell({row, Digest});
  if (!mayEdit()) return;
  insertLine(*this, row, {});
  showVoucher();
  openCell({row, Digest});
}

void LocalPZ::removeHere() {
  editor_->cancel();
  const std::size_t row = currentCell().row;
  if (row > RowCount() || !mayEdit()) return;
  removeLine(*this, row);
  showVoucher();
}

void LocalPZ::balanceHere(Cell cell) {
  if (cell.row > RowCount() || !mayEdit()) return;
  Voucher balanced = static_cast<const Voucher&>(*this);
  try {
    balanceWith(balanced, cell.row, cell.column == Debit ? VoucherSide::Debit : VoucherSide::Credit);
  } catch (const RuntimeError&) {
    return;  // no amount can balance it
  }
  Row(cell.row) = balanced.Row(cell.row);
  showLine(cell.row);
  lines_->selectCell(cell.row, cell.column);
}

void LocalPZ::turnSide(Cell cell) {
  if (cell.row > RowCount() || !mayEdit()) return;
  std::swap(Row(cell.row).Debit, Row(cell.row).Credit);
  showLine(cell.row);
  lines_->selectCell(cell.row, cell.column == Debit ? Credit : Debit);
}

void LocalPZ::requestLookUp(std::size_t row, std::size_t column) {
  if (column == Digest) emit BrowseDigest(row);
  if (column == Subject) emit BrowseSubject(row);
}

void LocalPZ::takeLookedUp(const QString& text) {
  if (!editor_->isOpen()) return;
  editor_->setText(text);
  editor_->commit();
  moveOn(opened_.row, opened_.column);
}

void LocalPZ::browseSign() {
  editor_->commit();
  if (!AllowBrowseSign || !mayEdit()) return;
  emit BrowseSign();
}

void LocalPZ::clearSign() {
  if (VoucherSign.empty() || !mayEdit()) return;
  VoucherSign.clear();
  showHead();
}

void LocalPZ::takeDate(const QDate& date) {
  if (mayEdit())
    VoucherDate = DateTime::fromParts(date.year(), date.month(), date.day()).value_or(VoucherDate);
  showHead();
}

void LocalPZ::takeAttachments(int count) {
  if (mayEdit()) Attachments = static_cast<std::int16_t>(count);
  showHead();
}

}  // namespace zelkor
