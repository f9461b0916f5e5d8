#pragma once

#include <array>
#include <QPushButton>
#include <QRadioButton>

#include "ui/Form.h"
#include "vouchers/ClsBLLPZType.h"

namespace zelkor {

/// Adds a ready-made set of voucher types to the archive.
class FrmSetPZType final : public Form {
 public:
  /// `BLLPZType` must outlive the form.
  FrmSetPZType(FormHost& host, ClsBLLPZType& BLLPZType);

 private:
  std::array<QRadioButton*, 5> OptType = makeArray<QRadioButton, 5>("OptType");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void cmdOK_Click();
  void escapePressed() override { close(); }

  ClsBLLPZType& BLLPZType_;
};

}  // namespace zelkor
