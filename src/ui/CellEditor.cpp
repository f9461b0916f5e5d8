#include "ui/CellEditor.h"

#include <algorithm>
#include <iterator>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "ui/FlexGrid.h"
#include "ui/Focus.h"
#include "ui/Texts.h"

namespace zelkor {

CellEditor::CellEditor(FlexGrid* grid)
    : QWidget(grid->viewport()),
      grid_(grid),
      box_(new QLineEdit(this)),
      combo_(new QComboBox(this)),
      button_(new QPushButton("…", this)) {
  setStyleSheet(
      "QLineEdit, QPushButton { min-height: 0; padding: 0 3px; border-radius: 0; }"
      "QLineEdit:read-only { background: #eaf2fb; color: #1f2933; }");
  button_->setProperty("pick", true);
  button_->setFocusPolicy(Qt::NoFocus);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(0);
  for (QWidget* part :
       {static_cast<QWidget*>(box_), static_cast<QWidget*>(combo_), static_cast<QWidget*>(button_)}) {
    part->setSizePolicy(part == button_ ? QSizePolicy::Fixed : QSizePolicy::Ignored, QSizePolicy::Ignored);
    line->addWidget(part);
    part->installEventFilter(this);
  }
  hide();
  connect(button_, &QPushButton::clicked, this, [this] { emit buttonPressed(row_, column_); });
  for (QScrollBar* bar : {grid->horizontalScrollBar(), grid->verticalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, &CellEditor::place);
  }
  connect(grid->horizontalHeader(), &QHeaderView::sectionResized, this, &CellEditor::place);
  grid->installEventFilter(this);
}

void CellEditor::nameControls(const char* box, const char* button) {
  box_->setObjectName(box);
  button_->setObjectName(button);
}

void CellEditor::editText(std::size_t row, std::size_t column, const QValidator* limit) {
  box_->setValidator(limit);
  button_->hide();
  open(row, column, box_);
}

void CellEditor::editWithButton(std::size_t row, std::size_t column) {
  box_->setValidator(nullptr);
  button_->show();
  open(row, column, box_);
}

void CellEditor::editPicked(std::size_t row, std::size_t column, Emptying emptying) {
  editWithButton(row, column);
  emptying_ = emptying;
  box_->setReadOnly(true);
  box_->deselect();
}

void CellEditor::editChoice(std::size_t row, std::size_t column, const QStringList& entries) {
  combo_->clear();
  combo_->addItems(entries);
  button_->hide();
  open(row, column, combo_);
}

void CellEditor::open(std::size_t row, std::size_t column, QWidget* editor) {
  if (open_) commit();
  row_ = row;
  column_ = column;
  choosing_ = editor == combo_;
  box_->setReadOnly(false);
  before_ = toQt(grid_->grid().text(row, column));
  editor->setAccessibleName(toQt(grid_->grid().text(0, column)));
  box_->setVisible(!choosing_);
  combo_->setVisible(choosing_);
  setText(before_);
  open_ = true;
  grid_->scrollTo(grid_->cellIndex(row, column));
  place();
  show();
  editor->setFocus();
  box_->selectAll();
}

void CellEditor::place() {
  if (open_) setGeometry(grid_->visualRect(grid_->cellIndex(row_, column_)));
}

QString CellEditor::text() const {
  return choosing_ ? combo_->currentText() : box_->text();
}

void CellEditor::setText(const QString& text) {
  box_->setText(text);
  box_->selectAll();
  combo_->setCurrentIndex(combo_->findText(text));
}

void CellEditor::commit() {
  if (!open_) return;
  const QString entered = text();
  const std::size_t row = row_;
  const std::size_t column = column_;
  leave();
  emit ended(row, column, entered);
  if (entered != before_) emit committed(row, column, entered);
}

void CellEditor::cancel() {
  if (open_) leave();
}

/// Closed first: the focus that goes back to the grid must not end the editing a second time. It goes before
/// the editor is hidden, or the window would give it to the next control; one that has gone elsewhere stays
/// there.
void CellEditor::leave() {
  open_ = false;
  const QWidget* held = window()->focusWidget();
  if (!held || isAncestorOf(held)) grid_->setFocus();
  hide();
}

void CellEditor::ask(std::size_t row, std::size_t column) {
  grid_->selectCell(row, column);
  if (!open_ && grid_->currentGridRow() == row) emit requested(row, column);
}

void CellEditor::goOn(std::size_t row, std::size_t column) {
  if (open_) return;
  const auto next = std::ranges::upper_bound(columns_, column);
  if (next != columns_.end()) return ask(row, *next);
  do ++row;
  while (row < grid_->grid().rows() && grid_->grid().rowHidden(row));
  if (row < grid_->grid().rows() && !columns_.empty()) return ask(row, columns_.front());
  emit passedEnd();
}

void CellEditor::goBack(std::size_t row, std::size_t column) {
  if (open_) return;
  const auto own = std::ranges::lower_bound(columns_, column);
  if (own != columns_.begin()) return ask(row, *std::prev(own));
  if (row > grid_->grid().headerRows()) ask(row - 1, columns_.back());
}

/// True when the current cell has been opened, or the first one of its row that is filled in.
bool CellEditor::request() {
  const auto row = grid_->currentGridRow();
  const auto column = grid_->currentGridColumn();
  if (!row || columns_.empty()) return false;
  const bool fillsIn = column && std::ranges::find(columns_, *column) != columns_.end();
  ask(*row, fillsIn ? *column : columns_.front());
  return open_;
}

bool CellEditor::isPicked() const {
  return !choosing_ && box_->isReadOnly();
}

void CellEditor::pick(const QString& text) {
  emit seeking(text);
  button_->click();
  emit seeking({});
}

bool CellEditor::gridKey(QKeyEvent& event) {
  const bool open = event.key() == Qt::Key_F2;
  if ((!open && !writesText(event)) || open_ || !request()) return false;
  if (open && isPicked()) pick({});
  if (!open) QApplication::sendEvent(choosing_ ? static_cast<QWidget*>(combo_) : box_, &event);
  return true;
}

bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
  if (editor == grid_) {
    const bool key = event->type() == QEvent::KeyPress && !columns_.empty();
    return (key && gridKey(*static_cast<QKeyEvent*>(event))) || QWidget::eventFilter(editor, event);
  }
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) commit();
    return QWidget::eventFilter(editor, event);
  }
  const bool taken = event->type() == QEvent::KeyPress && boxKey(*static_cast<QKeyEvent*>(event));
  return taken || QWidget::eventFilter(editor, event);
}

bool CellEditor::boxKey(QKeyEvent& event) {
  const auto row = row_;
  const auto column = column_;
  switch (event.key()) {
    case Qt::Key_Escape:
      cancel();
      return true;
    case Qt::Key_F2:
      if (!button_->isHidden()) pick({});
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (columns_.empty()) return false;
      [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
      commit();
      if (event.key() == Qt::Key_Backtab) {
        goBack(row, column);
      } else {
        emit entered(row, column);
      }
      return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      if (isPicked() && emptying_ == Emptying::Allowed) box_->clear();
      return isPicked();
    default:
      break;
  }
  if (!isPicked() || !writesText(event)) return false;
  pick(event.text());
  return true;
}

}  // namespace zelkor
