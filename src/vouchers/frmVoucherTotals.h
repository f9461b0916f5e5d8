#pragma once

#include <array>
#include <cstddef>
#include <QFrame>
#include <QLabel>

#include "vouchers/Voucher.h"

namespace zelkor {

class FlexGrid;

/// The last line of a voucher's table: the sums of both sides under their columns, and whether they are
/// equal. One that does not balance is red.
class VoucherTotalsLine final : public QFrame {
 public:
  /// Keeps its cells under the grid's columns of the debit and of the credit amounts.
  VoucherTotalsLine(FlexGrid& above, std::size_t debitColumn, std::size_t creditColumn, QWidget* parent);

  void showTotals(const Voucher& voucher);
  /// Whether the sums shown are equal.
  bool balanced() const { return balanced_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();
  void showSums(const QString& debit, const QString& credit, const QString& balance, bool balanced);

  FlexGrid& above_;
  std::array<int, 2> columns_;
  QLabel* caption_ = new QLabel("合　计", this);
  QLabel* balance_ = new QLabel(this);
  bool balanced_ = false;
  std::array<QLabel*, 2> sums_ = {new QLabel(this), new QLabel(this)};
};

}  // namespace zelkor
