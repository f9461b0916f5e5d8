#include "base/Text.h"
#include "store/engine/Statement.h"
#include "vouchers/ClsQueryPZ.h"
#include "year/YearBooks.h"

// The vouchers.
namespace zelkor::test {

void YearBooks::mark(BatchBilling& billing, const std::string& event, const std::string& mergeNumber) {
  using namespace selection_column;
  const TextGrid& list = billing.selection();
  for (std::size_t row = 1; row < list.rows(); ++row) {
    if (list.text(row, Sign) + list.text(row, Number) != event) continue;
    billing.toggleMark(row);
    if (!mergeNumber.empty()) billing.setMergeNumber(row, mergeNumber);
    return;
  }
  dialogs_.note("not to be billed: " + event);
}

void YearBooks::fillSubjects(BatchBilling& billing, const std::string& debit, const std::string& credit) {
  billing.loadLines();
  for (std::size_t row = 1; row < billing.lines().rows(); ++row) {
    const bool onDebit = billing.lines().text(row, line_column::Side) == "借";
    // The mark of a disposal's credit row, "0", is no subject.
    const std::string subject = Trim(billing.lines().text(row, line_column::Subject));
    if (subject.empty() || subject == "0") billing.enterSubject(row, onDebit ? debit : credit);
  }
}

void YearBooks::saveVoucher(const VoucherRequest& request, const std::string& digest) {
  Voucher voucher;
  VoucherFill window(context_, request, voucher);
  if (!window.LoadVouch()) return dialogs_.note("voucher not loaded");
  for (std::size_t i = 1; i <= voucher.RowCount(); ++i) {
    if (voucher.Row(i).Digest.empty()) voucher.Row(i).Digest = digest;
  }
  if (!window.Save()) return dialogs_.note("voucher not saved");
  const VoucherTotals totals = totalsOf(voucher);
  dialogs_.note(sql("voucher ", window.ino_id(), " ", request.scOutSign, ": ", totals.debit.toText(), " / ",
                    totals.credit.toText()));
}

void YearBooks::makeVoucher(const std::string& event, const std::string& debit, const std::string& credit) {
  BatchBilling billing(context_);
  mark(billing, event);
  fillSubjects(billing, debit, credit);
  if (billing.ToolSave()) saveVoucher(billing.request());
}

void YearBooks::makeMergedVoucher(const std::vector<std::string>& events, const std::string& debit,
                                  const std::string& credit) {
  BatchBilling billing(context_);
  for (const std::string& event : events) mark(billing, event, "1");
  fillSubjects(billing, debit, credit);
  if (billing.ToolSave()) saveVoucher(billing.request());
}

void YearBooks::makeVoucherBySubject(const std::string& event, const std::string& credit,
                                     const std::string& digest) {
  BatchBilling billing(context_);
  billing.CheckHB = true;
  mark(billing, event);
  fillSubjects(billing, "", credit);
  if (billing.ToolSave()) saveVoucher(billing.request(), digest);
}

void YearBooks::deleteVoucher(const std::string& sign, const std::string& number) {
  ClsQueryPZ query(context_);
  query.setZkDataPath(context_.gstrZtFile);
  const TextGrid list = queriedVouchers(query.rstGetCards(period(), period()));
  for (std::size_t row = 1; row < list.rows(); ++row) {
    const QueriedVoucher voucher = queriedVoucher(list, row);
    if (voucher.coutsign != sign || voucher.coutno_id != number) continue;
    deleteQueriedVoucher(context_, query, voucher);
    return;
  }
  dialogs_.note("not in the ledger: " + sign + number);
}

}  // namespace zelkor::test
