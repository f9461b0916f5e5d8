#pragma once

#include <QWidget>

class QBoxLayout;
class QLineEdit;
class QToolButton;

namespace zelkor {

/// The two small arrows beside a text box. Box and arrows follow each other: a step writes the value into the
/// box, a number typed there becomes the value, cut to the range.
class UpDown final : public QWidget {
  Q_OBJECT

 public:
  explicit UpDown(QWidget* parent = nullptr);

  /// The box that shows the value. Arrow keys in it step as well.
  void setBuddy(QLineEdit* box);
  int value() const { return value_; }
  void setValue(int value);
  int minimum() const { return minimum_; }
  int maximum() const { return maximum_; }
  void setRange(int minimum, int maximum);

 signals:
  void valueChanged(int value);
  /// An arrow was pressed: +1 or -1. Also where the value stays as it is at an end of the range.
  void stepped(int direction);

 protected:
  bool eventFilter(QObject* box, QEvent* event) override;

 private:
  void step(int direction);
  void showValue();

  QToolButton* up_;
  QToolButton* down_;
  QLineEdit* box_ = nullptr;
  int value_ = 0;
  int minimum_ = 0;
  int maximum_ = 10;
};

/// Dresses a box for a short number.
void numberBox(QLineEdit* box);
/// Box and arrows side by side.
QBoxLayout* spinnerPair(QLineEdit* box, UpDown* spinner);

}  // namespace zelkor
