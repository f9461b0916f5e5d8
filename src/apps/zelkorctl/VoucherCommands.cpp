#include "apps/zelkorctl/VoucherCommands.h"

#include <optional>
#include <ostream>

#include "base/FileContent.h"
#include "base/TextGridPrinter.h"
#include "vouchers/ClsQueryPZ.h"
#include "vouchers/VoucherMaker.h"

namespace zelkor {
namespace {

TextGrid vouchersOfMonth(RunContext& run, ClsQueryPZ& query) {
  query.setZkDataPath(run.gstrZtFile);
  return queriedVouchers(query.rstGetCards(run.period(), run.period()));
}

std::optional<QueriedVoucher> voucherOfMonth(RunContext& run, ClsQueryPZ& query, const std::string& number) {
  const TextGrid vouchers = vouchersOfMonth(run, query);
  for (std::size_t row = vouchers.headerRows(); row < vouchers.rows(); ++row)
    if (vouchers.text(row, query_column::VoucherNumber) == number) return queriedVoucher(vouchers, row);
  return std::nullopt;
}

void print(const BilledEvent& billed, std::ostream& output, std::ostream& problems) {
  if (!billed.saved) {
    problems << "未生成凭证：" << billed.event << '\n';
    return;
  }
  output << billed.voucherNumber << "  " << billed.voucherKey << "  " << billed.lines << " 条分录，借方 "
         << voucherAmountText(billed.totals.debit) << "，贷方 " << voucherAmountText(billed.totals.credit)
         << (billed.totals.balanced() ? "" : "，借贷不平") << std::endl;
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
      run.engine.flush();  // what is told stays
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
    const auto voucher = voucherOfMonth(run, query, number);
    if (!voucher) {
      problems << queryPeriodText(run.gdOpDate) << " 没有凭证“" << number << "”\n";
      return 1;
    }
    if (!deleteQueriedVoucher(run, query, *voucher)) return 1;
    // The deletion goes by event and day, and says that it succeeded when it meets no row.
    if (!voucherOfMonth(run, query, number)) return 0;
    problems << "凭证“" << number << "”仍在账中，没有删除\n";
    return 1;
  });
}

}  // namespace zelkor
