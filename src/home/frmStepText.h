#pragma once

#include <QLabel>

namespace zelkor {

/// A text that has the height which it needs at whatever width it is given.
class frmStepText final : public QLabel {
 public:
  explicit frmStepText(QWidget* parent = nullptr) : QLabel(parent) {
    setTextFormat(Qt::RichText);
    setWordWrap(true);
  }

  void show(const QString& text) {
    setText(text);
    fit();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    fit();
  }

 private:
  void fit() { setMinimumHeight(text().isEmpty() ? 0 : heightForWidth(width())); }
};

}  // namespace zelkor
