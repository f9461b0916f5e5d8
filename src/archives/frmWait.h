#pragma once

#include <array>
#include <cstddef>
#include <QLabel>
#include <QTimer>
#include <string>

#include "ui/Form.h"

namespace zelkor {

/// Asks a person to wait: a picture that turns, and a text.
class frmWait final : public Form {
 public:
  explicit frmWait(FormHost& host);

  void setLblCaption(const std::string& text) { lblCaption->setText(toQt(text)); }

 private:
  std::array<QLabel*, 4> Img = makeArray<QLabel, 4>("Img");
  QLabel* lblCaption = make<QLabel>("lblCaption");
  QTimer* Timer1 = new QTimer(this);

  void arrangeControls();
  void showPicture(std::size_t shown);
  void Timer1_Timer();

  std::size_t counter_ = 0;
};

}  // namespace zelkor
