#include "ui/CellEditor.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "ui/FlexGrid.h"
#include "ui/Texts.h"

namespace zelkor {

CellEditor::CellEditor(FlexGrid* grid)
    : QWidget(grid->viewport()),
      grid_(grid),
      box_(new QLineEdit(this)),
      combo_(new QComboBox(this)),
      button_(new QPushButton("…", this)) {
  setStyleSheet("QLineEdit, QPushButton { min-height: 0; padding: 0 3px; border-radius: 0; }");
  button_->setProperty("pick", true);
  button_->setFocusPolicy(Qt::NoFocus);
  grid->setSelectionMode(QAbstractItemView::SingleSelection);  // Shift and Ctrl are no way into a cell
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

/// Closed first: the focus that goes back to the grid must not end the editing a second time.
void CellEditor::leave() {
  open_ = false;
  hide();
  grid_->setFocus();
}

bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) commit();
    return QWidget::eventFilter(editor, event);
  }
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(editor, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Escape) {
    cancel();
    return true;
  }
  if (key == Qt::Key_F2 && !button_->isHidden()) {
    button_->click();
    return true;
  }
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return QWidget::eventFilter(editor, event);
  const auto row = row_;
  const auto column = column_;
  commit();
  emit entered(row, column);
  return true;
}

}  // namespace zelkor
