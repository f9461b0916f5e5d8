#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

class QAbstractItemView;

namespace zelkor {

/// A bar above a list in which one types what one looks for; each key searches. Ctrl+F anywhere in the form
/// opens it. Up and Down move in the list meanwhile, Enter takes what has been found, Esc closes the bar and
/// goes back to the list.
class FindBar : public QWidget {
 public:
  /// Opens with that text, as if it had been typed. Always true: there is something to be searched.
  bool searchFor(const QString& text);

 protected:
  /// `hint` names what is searched. `form` is where Ctrl+F counts.
  FindBar(QAbstractItemView& list, const QString& hint, QWidget* form);

  /// Goes to what matches; nothing is sought with the empty text. Returns what is said about it.
  virtual QString search(const QString& text) = 0;
  /// Up (-1) or Down (1).
  virtual void step(int direction) = 0;
  /// Takes the current entry of the list.
  virtual void take() = 0;

  QString text() const { return field_->text(); }
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Searches once more, for a list that has changed.
  void searchAgain();

 private:
  void open();
  void leave();
  bool keyPressed(int key);

  QAbstractItemView& list_;
  QLineEdit* field_ = new QLineEdit(this);
  QLabel* result_ = new QLabel(this);
};

}  // namespace zelkor
