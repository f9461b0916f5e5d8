#pragma once

#include <QLabel>
#include <QProgressBar>

#include "ui/Form.h"

namespace zelkor {

/// Shows how far the backup before a month-end is. A person can do nothing with it.
class frmWaiting final : public Form {
 public:
  explicit frmWaiting(FormHost& host);

  /// Shows the percentage and lets the windows be drawn; keys and clicks wait meanwhile, so that no event
  /// routine runs inside the one that is under way.
  void setPercent(int percent);

 private:
  QLabel* lblCaption = make<QLabel>("lblCaption");
  QLabel* lblText = make<QLabel>("lblText");
  QProgressBar* probar = make<QProgressBar>("probar");
  QLabel* lblPercent = make<QLabel>("lblPercent");

  void display(int percent);
};

}  // namespace zelkor
