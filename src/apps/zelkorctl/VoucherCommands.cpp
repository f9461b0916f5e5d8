#include "apps/zelkorctl/VoucherCommands.h"

#include <ostream>

#include "base/TextGridPrinter.h"
#include "vouchers/ClsQueryPZ.h"
#include "vouchers/VoucherMaker.h"

namespace zelkor {
namespace {

TextGrid vouchersOfMonth(RunContext& run, ClsQueryPZ& query) {
  query.setZkDataPath(run.gstrZtFile);
  return queriedVouchers(query.rstGetCards(run.period(), run.period()));
}

void print(const BilledEvent& billed, std::ostream& output, std::ostream& problems) {
  if (!billed.saved) {
    problems << "未生成凭证：" << billed.event << '\n';
    return;
  }
  output << billed.voucherNumber << "  " << billed.voucherKey << "  " << billed.lines << " 条分录，借方 "
         << voucherAmountText(billed.totals.debit) << "，贷方 " << voucherAmountText(billed.totals.credit)
         << (billed.totals.balanced() ? "" : "，借贷不平") << '\n';
}

}  // namespace

int pendingVouchersCommand(const JobRun& job, std::ostream& output) {
  return inPreparedRun(job, output, [&output](RunContext& run) {
    TextGrid pending = BatchBilling(run).selection();
    pending.setColumnHidden(selection_column::Mark, true);
    printGrid(output, pending);
    return 0;
  });
}

int makeVouchersCommand(const JobRun& job, const MakeVouchersOptions& options, std::ostream& output,
                        std::ostream& problems) {
  const std::string csv = options.subjectsFile.empty() ? std::string() : contentOf(options.subjectsFile);
  return inPreparedRun(job, output, [&](RunContext& run) {
    LineSubjects subjects;
    if (!options.subjectsFile.empty()) subjects = LineSubjects(csv, run.dbZKData);
    ChosenSign sign;
    if (!options.sign.empty()) sign = chooseSign(run.dbZKData, options.sign);
    VoucherMaker maker(run, std::move(subjects), std::move(sign));
    if (options.merge) maker.mergeLines();
    long made = 0;
    long refused = 0;
    maker.makeAll([&](const BilledEvent& billed) {
      ++(billed.saved ? made : refused);
      print(billed, output, problems);
    });
    output << "共 " << made + refused << " 张凭证：已保存 " << made << " 张，未保存 " << refused << " 张\n";
    return refused == 0 ? 0 : 1;
  });
}

int listVouchersCommand(const JobRun& job, std::ostream& output) {
  return inPreparedRun(job, output, [&output](RunContext& run) {
    ClsQueryPZ query(run);
    printGrid(output, vouchersOfMonth(run, query));
    return 0;
  });
}

int deleteVoucherCommand(const JobRun& job, const std::string& number, std::ostream& output,
                         std::ostream& problems) {
  return inPreparedRun(job, output, [&](RunContext& run) {
    ClsQueryPZ query(run);
    const TextGrid vouchers = vouchersOfMonth(run, query);
    for (std::size_t row = vouchers.headerRows(); row < vouchers.rows(); ++row) {
      if (vouchers.text(row, query_column::VoucherNumber) != number) continue;
      return deleteQueriedVoucher(run, query, queriedVoucher(vouchers, row)) ? 0 : 1;
    }
    problems << queryPeriodText(run.gdOpDate) << " 没有凭证“" << number << "”\n";
    return 1;
  });
}

}  // namespace zelkor
