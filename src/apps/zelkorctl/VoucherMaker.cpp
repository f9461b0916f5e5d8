#include "apps/zelkorctl/VoucherMaker.h"

#include <ostream>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "store/engine/Statement.h"
#include "vouchers/VoucherFill.h"

namespace zelkor {

VoucherMaker::VoucherMaker(RunContext& run, LineSubjects subjects, std::ostream& output,
                           std::ostream& problems)
    : run_(run), subjects_(std::move(subjects)), output_(output), problems_(problems), billing_(run) {}

bool VoucherMaker::makeAll() {
  std::vector<bool> done(billing_.selection().rows());
  long made = 0;
  long refused = 0;
  for (std::size_t row = 1; row < done.size(); ++row) {
    if (done[row]) continue;
    billing_.toggleMark(row);
    for (const std::size_t loaded : billing_.loadLines()) done[loaded] = true;
    billing_.toggleMark(row);
    const bool saved = make();
    ++(saved ? made : refused);
    if (!saved) problems_ << "未生成凭证：" << billing_.loadedText() << '\n';
  }
  output_ << "共 " << made + refused << " 张凭证：已保存 " << made << " 张，未保存 " << refused << " 张\n";
  return refused == 0;
}

bool VoucherMaker::make() {
  completeSubjects();
  return billing_.ToolSave() && saveVoucher();
}

void VoucherMaker::completeSubjects() {
  const TextGrid& lines = billing_.lines();
  for (std::size_t row = 1; row < lines.rows(); ++row) {
    if (!Trim(lines.text(row, line_column::Subject)).empty()) continue;
    const std::string* subject =
        subjects_.find(lines.text(row, line_column::Sign), lines.text(row, line_column::Side));
    if (subject) billing_.enterSubject(row, *subject);
  }
}

/// A line that several entries have become has no digest of its own: it takes that of the first of them.
void VoucherMaker::completeDigests(Voucher& voucher) {
  for (std::size_t i = 1; i <= voucher.RowCount(); ++i) {
    VoucherLine& line = voucher.Row(i);
    const Recordset first = run_.dbZKData.OpenRecordset(
        sql("select cdigest from fa_ZWVouchers where ioutyear=", run_.gdOpDate.year(),
            " and ioutperiod=", run_.period(), " and cDefine10 like '", billing_.request().scOutSign,
            "*' and ccode='", line.SubjectCode, "' order by i_id"));
    if (line.Digest.empty() && !first.Eof()) line.Digest = first.TextOrEmpty("cdigest");
  }
}

bool VoucherMaker::saveVoucher() {
  Voucher voucher;
  VoucherFill window(run_, billing_.request(), voucher);
  if (!window.LoadVouch()) return false;
  if (voucher.RowCount() == 0) return false;
  if (billing_.request().merge) completeDigests(voucher);
  if (sign_) {
    voucher.VoucherSign = sign_->sign;
    voucher.SignSeq = sign_->sequence;
  }
  if (!window.Save()) return false;
  tell(voucher, window.ino_id());
  return true;
}

void VoucherMaker::tell(const Voucher& voucher, std::int16_t number) {
  const VoucherTotals totals = totalsOf(voucher);
  output_ << voucher.VoucherSign << "--" << number << "  " << billing_.request().scOutSign << "  "
          << voucher.RowCount() << " 条分录，借方 " << voucherAmountText(totals.debit) << "，贷方 "
          << voucherAmountText(totals.credit) << (totals.balanced() ? "" : "，借贷不平") << '\n';
}

}  // namespace zelkor
