#pragma once

#include <QPushButton>

#include "ui/Form.h"

namespace zelkor {

/// Closes the login month.
class frmYMJZ final : public Form {
 public:
  explicit frmYMJZ(FormHost& host);

 private:
  QPushButton* cmdStart = make<QPushButton>("cmdStart", "开始结账");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void cmdStart_Click();
  void escapePressed() override { close(); }
};

}  // namespace zelkor
