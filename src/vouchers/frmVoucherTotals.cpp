#include "vouchers/frmVoucherTotals.h"

#include <QHeaderView>
#include <QResizeEvent>

#include "base/RuntimeError.h"
#include "ui/FlexGrid.h"
#include "ui/Texts.h"
#include "vouchers/VoucherGrid.h"

namespace zelkor {
namespace {

constexpr int kHeight = 34;
constexpr int kPadding = 3;  // as the cells have
constexpr int kCaptionWidth = 84;

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
    showSums(toQt(voucherSumText(totals.debit)), toQt(voucherSumText(totals.credit)),
             toQt(voucherBalanceText(totals)), totals.balanced());
  } catch (const RuntimeError&) {
    showSums({}, {}, "合计超出金额范围", false);
  }
}

void VoucherTotalsLine::showSums(const QString& debit, const QString& credit, const QString& balance,
                                 bool balanced) {
  sums_[0]->setText(debit);
  sums_[1]->setText(credit);
  balance_->setText(balance);
  balanced_ = balanced;
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
