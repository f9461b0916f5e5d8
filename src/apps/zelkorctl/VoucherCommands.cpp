#include "apps/zelkorctl/VoucherCommands.h"

#include <iostream>
#include <memory>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/VoucherMaker.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/TerminalDialogs.h"
#include "base/TextGridPrinter.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "store/engine/Statement.h"
#include "vouchers/ClsQueryPZ.h"

namespace zelkor {
namespace {

/// The run that a job works in, with its files open; what it has gathered is written out when it goes.
class VoucherRun {
 public:
  VoucherRun(const VoucherJob& job, std::ostream& output)
      : clock_(clockOf(job.today)), dialogs_(std::cin, output) {
    writeOutBeforeShowing(run_);
    prepareRun(run_, job.arguments);
  }
  RunContext& run() { return run_; }

 private:
  std::unique_ptr<Clock> clock_;
  DbEngine engine_;
  TerminalDialogs dialogs_;
  RunContext run_{engine_, dialogs_, *clock_};
};

ChosenSign signOf(Database& data, const std::string& sign) {
  const Recordset type = data.OpenRecordset(sql("select * from dsign where csign='", sign, "'"));
  if (type.Eof()) throw RuntimeError(ErrorNumber::DataTypeConversion, "没有凭证类别“" + sign + "”");
  const Value sequence = type.Fields("isignseq");
  return {type.TextOrEmpty("csign"), sequence.isNull() ? std::int16_t{0} : CInt(sequence)};
}

TextGrid vouchersOfMonth(RunContext& run, ClsQueryPZ& query) {
  query.setZkDataPath(run.gstrZtFile);
  return queriedVouchers(query.rstGetCards(run.period(), run.period()));
}

}  // namespace

int pendingVouchersCommand(const VoucherJob& job, std::ostream& output) {
  VoucherRun voucherRun(job, output);
  TextGrid pending = BatchBilling(voucherRun.run()).selection();
  pending.setColumnHidden(selection_column::Mark, true);
  printGrid(output, pending);
  return 0;
}

int makeVouchersCommand(const VoucherJob& job, const MakeVouchersOptions& options, std::ostream& output,
                        std::ostream& problems) {
  const std::string csv = options.subjectsFile.empty() ? std::string() : contentOf(options.subjectsFile);
  VoucherRun voucherRun(job, output);
  RunContext& run = voucherRun.run();
  LineSubjects subjects;
  if (!options.subjectsFile.empty()) subjects = LineSubjects(csv, run.dbZKData);
  VoucherMaker maker(run, std::move(subjects), output, problems);
  if (!options.sign.empty()) maker.chooseSign(signOf(run.dbZKData, options.sign));
  if (options.merge) maker.mergeLines();
  const bool all = maker.makeAll();
  run.engine.flush();
  return all ? 0 : 1;
}

int listVouchersCommand(const VoucherJob& job, std::ostream& output) {
  VoucherRun voucherRun(job, output);
  ClsQueryPZ query(voucherRun.run());
  printGrid(output, vouchersOfMonth(voucherRun.run(), query));
  return 0;
}

int deleteVoucherCommand(const VoucherJob& job, const std::string& number, std::ostream& output,
                         std::ostream& problems) {
  VoucherRun voucherRun(job, output);
  RunContext& run = voucherRun.run();
  ClsQueryPZ query(run);
  const TextGrid vouchers = vouchersOfMonth(run, query);
  for (std::size_t row = vouchers.headerRows(); row < vouchers.rows(); ++row) {
    if (vouchers.text(row, query_column::VoucherNumber) != number) continue;
    const bool deleted = deleteQueriedVoucher(run, query, queriedVoucher(vouchers, row));
    run.engine.flush();
    return deleted ? 0 : 1;
  }
  problems << queryPeriodText(run.gdOpDate) << " 没有凭证“" << number << "”\n";
  return 1;
}

}  // namespace zelkor
