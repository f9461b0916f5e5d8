#include "vouchers/VoucherMaker.h"

#include <vector>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "vouchers/VoucherFill.h"

namespace zelkor {

ChosenSign chooseSign(Database& data, const std::string& sign) {
  const Recordset type = data.OpenRecordset(sql("select * from dsign where csign='", sign, "'"));
  if (type.Eof()) throw RuntimeError(ErrorNumber::DataTypeConversion, "没有凭证类别“" + sign + "”");
  return {type.TextOrEmpty("csign"), CInt(type.Fields("isignseq").numberOrZero())};
}

void VoucherMaker::makeAll(const std::function<void(const BilledEvent&)>& ended) {
  std::vector<bool> done(billing_.selection().rows());
  for (std::size_t row = 1; row < done.size(); ++row) {
    if (done[row]) continue;
    billing_.toggleMark(row);
    for (const std::size_t loaded : billing_.loadLines()) done[loaded] = true;
    billing_.toggleMark(row);
    ended(make());
  }
}

BilledEvent VoucherMaker::make() {
  BilledEvent billed;
  completeSubjects();
  billed.saved = billing_.ToolSave() && saveVoucher(billed);
  billed.event = billing_.loadedText();
  return billed;
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

bool VoucherMaker::saveVoucher(BilledEvent& billed) {
  Voucher voucher;
  VoucherFill window(run_, billing_.request(), voucher);
  if (!window.LoadVouch() || voucher.RowCount() == 0) return false;
  if (billing_.request().merge) completeDigests(voucher);
  if (!sign_.sign.empty()) {
    voucher.VoucherSign = sign_.sign;
    voucher.SignSeq = sign_.sequence;
  }
  if (!window.Save()) return false;
  billed.voucherNumber = sql(voucher.VoucherSign, "--", window.ino_id());
  billed.voucherKey = billing_.request().scOutSign;
  billed.lines = voucher.RowCount();
  billed.totals = totalsOf(voucher);
  return true;
}

}  // namespace zelkor
