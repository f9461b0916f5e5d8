#pragma once

#include <optional>
#include <QListWidget>

#include "ui/Form.h"
#include "vouchers/VoucherTypePick.h"

namespace zelkor {

/// Picks the type of a voucher: a click on it, or Enter, takes it.
class frmPZType final : public Form {
 public:
  /// Reads the types and the vouchers of `database`.
  frmPZType(FormHost& host, const Database& database);

  /// Sign, place in the sequence, and next voucher number of the type; nothing when none was clicked.
  const std::optional<PickedVoucherType>& picked() const { return picked_; }

 private:
  QListWidget* List1 = make<QListWidget>("List1");

  void List1_Click();
  bool enterPressed(QObject* control) override;
  void escapePressed() override { close(); }

  Database database_;
  std::optional<PickedVoucherType> picked_;
};

}  // namespace zelkor
