#include <QKeyEvent>

#include "vouchers/frmLocalPZ.h"

namespace zelkor {
namespace {

bool isEnterKey(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

bool LocalPZ::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lines_ && event->type() == QEvent::Resize) fillPaper();
  if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
  bool taken = false;
  host_.dispatch([&] { taken = keyPressed(watched, *static_cast<QKeyEvent*>(event)); });
  return taken || QFrame::eventFilter(watched, event);
}

bool LocalPZ::keyPressed(QObject* watched, const QKeyEvent& key) {
  if (watched == lines_) return gridKey(key);
  if (watched == box_) return boxKey(key);
  if (watched == sign_) return signKey(key);
  if ((watched != date_ && watched != attachments_) || !isEnterKey(key)) return false;
  static_cast<QAbstractSpinBox*>(watched)->interpretText();
  focusNextChild();
  return true;
}

bool LocalPZ::lineKey(const QKeyEvent& key) {
  const bool insert = key.key() == Qt::Key_Insert;
  const bool remove = key.key() == Qt::Key_Delete && key.modifiers() == Qt::ControlModifier;
  if (insert) insertHere();
  if (remove) removeHere();
  return insert || remove;
}

bool LocalPZ::amountKey(const QKeyEvent& key, Cell cell) {
  const bool turn = key.key() == Qt::Key_Space;
  if ((cell.column != Debit && cell.column != Credit) || (!turn && key.text() != "=")) return false;
  if (turn) {
    editor_->commit();
    turnSide(cell);
  } else {
    editor_->cancel();
    balanceHere(cell);
  }
  return true;
}

/// A letter opens the cell and is the first that is there.
bool LocalPZ::gridKey(const QKeyEvent& key) {
  if (lineKey(key) || amountKey(key, currentCell())) return true;
  if (key.key() == Qt::Key_F2) {
    openCell(currentCell());
    return true;
  }
  const bool letter = !key.text().isEmpty() && key.text().front().isPrint() &&
                      !key.modifiers().testFlag(Qt::ControlModifier) &&
                      !key.modifiers().testFlag(Qt::AltModifier);
  if (!letter) return false;
  openCell(currentCell());
  if (editor_->isOpen()) box_->insert(key.text());
  return true;
}

bool LocalPZ::boxKey(const QKeyEvent& key) {
  if (lineKey(key) || amountKey(key, opened_)) return true;
  if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) return false;
  const Cell from = opened_;
  editor_->commit();
  if (key.key() == Qt::Key_Tab) {
    moveOn(from.row, from.column);
  } else {
    moveBack(from);
  }
  return true;
}

bool LocalPZ::signKey(const QKeyEvent& key) {
  if (key.key() == Qt::Key_F2) {
    browseSign();
  } else if (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace) {
    clearSign();
  } else if (isEnterKey(key)) {
    focusNextChild();
  } else {
    return false;
  }
  return true;
}

}  // namespace zelkor
