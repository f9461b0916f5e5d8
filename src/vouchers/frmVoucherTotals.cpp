#include "vouchers/frmVoucherTotals.h"

#include <QHeaderView>
#include <QResizeEvent>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "ui/FlexGrid.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kHeight = 34;
constexpr int kPadding = 3;  // as the cells have
constexpr int kCaptionWidth = 84;

QString sumText(Currency amount) {
  return toQt(Format(amount, "#,##0.00"));
}

QString balanceText(const VoucherTotals& totals) {
  if (totals.balanced()) return "借贷平衡";
  const bool debitMore = totals.debit > totals.credit;
  const Currency more = debitMore ? totals.difference() : -totals.difference();
  // With all its decimals: staged amounts have four, and "0.00 more" would tell nothing.
  return (debitMore ? "借贷不平，借方多 " : "借贷不平，贷方多 ") + toQt(Format(more, "#,##0.00##"));
}

}  // namespace

VoucherTotalsLine::VoucherTotalsLine(FlexGrid& above, std::size_t debitColumn, std::size_t creditColumn,
                                     QWidget* parent)
    : QFrame(parent), above_(above), columns_{static_cast<int>(debitColumn), static_cast<int>(creditColumn)} {
  setObjectName("VoucherTotals");
  setFixedHeight(kHeight);
  balance_->setObjectName("LblBalance");
  sums_[0]->setObjectName("LblDebit");
  sums_[1]->setObjectName("LblCredit");
  caption_->setAlignment(Qt::AlignCenter);
  balance_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (QLabel* sum : sums_) sum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  connect(above.horizontalHeader(), &QHeaderView::sectionResized, this, &VoucherTotalsLine::place);
}

void VoucherTotalsLine::showTotals(const Voucher& voucher) {
  try {
    const VoucherTotals totals = totalsOf(voucher);
    showSums(sumText(totals.debit), sumText(totals.credit), balanceText(totals), totals.balanced());
  } catch (const RuntimeError&) {
    showSums({}, {}, "合计超出金额范围", false);
  }
}

void VoucherTotalsLine::showSums(const QString& debit, const QString& credit, const QString& balance,
                                 bool balanced) {
  sums_[0]->setText(debit);
  sums_[1]->setText(credit);
  balance_->setText(balance);
  setProperty("balanced", balanced);
  setStyleSheet(balanced
                    ? "#VoucherTotals { background: #f1f4f7; border: 1px solid #c6cfd8; border-top: none; }"
                      "QLabel { color: #1f2933; font-weight: bold; }"
                      "#LblBalance { color: #2e7d4f; }"
                    : "#VoucherTotals { background: #fdecec; border: 1px solid #d98c8c; border-top: none; }"
                      "QLabel { color: #b3261e; font-weight: bold; }");
}

void VoucherTotalsLine::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  place();
}

void VoucherTotalsLine::place() {
  const QHeaderView& header = *above_.horizontalHeader();
  const int frame = above_.frameWidth();
  for (std::size_t i = 0; i < sums_.size(); ++i) {
    const int left = frame + header.sectionViewportPosition(columns_[i]);
    sums_[i]->setGeometry(left, 0, header.sectionSize(columns_[i]) - kPadding, height());
  }
  caption_->setGeometry(0, 0, kCaptionWidth, height());
  balance_->setGeometry(kCaptionWidth, 0, sums_[0]->x() - kCaptionWidth, height());
}

}  // namespace zelkor
