#include <ostream>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/Commands.h"
#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "cards/CardImport.h"
#include "changes/SheetImport.h"
#include "closing/DisposalTable.h"
#include "startup/Main.h"
#include "startup/OnlyJob.h"
#include "startup/ProgramEnd.h"

namespace zelkor {
namespace {

/// Prints how many rows of a file were stored; returns the status.
int summed(long stored, long refused, std::ostream& output) {
  output << "共 " << stored + refused << " 行：已保存 " << stored << " 行，拒绝 " << refused << " 行\n";
  return refused == 0 ? 0 : 1;
}

void print(const ImportedSheet& sheet, std::ostream& output) {
  if (sheet.line > 0) output << "第" << sheet.line << "行";
  if (sheet.row) output << " 卡片 " << sheet.row->cardNum << " " << sheet.row->kind;
  output << (sheet.line > 0 ? "：" : "") << (sheet.saved ? "变动单 " : "") << sheet.text << '\n';
}

void dispose(RunContext& context, std::span<const CsvTableRow> rows, std::ostream& problems) {
  const DisposalTable list = listDisposals(context.dbZKData, rows);
  for (const std::string& problem : list.problems) problems << problem << '\n';
  if (!list.problems.empty()) throw EndProgram{1};
  if (refusedBeforeDepreciation(context)) throw EndProgram{1};
  if (!disposeOfAssets(context, list.assets)) throw EndProgram{1};
  tellDisposed(context);
}

}  // namespace

int importCardsCommand(const JobRun& job, const std::string& file, int newType, std::ostream& output,
                       std::ostream& problems) {
  const std::string csv = contentOf(file);
  return inPreparedRun(job, output, [&](RunContext& context) {
    ImportResult result;
    asOnlyJob(context, OnlyJob::CardImport, [&] { result = importCards(context, csv, newType, problems); });
    problems.flush();
    return summed(result.stored, result.refused, output);
  });
}

int importSheetsCommand(const JobRun& job, const std::string& file, std::ostream& output) {
  const std::string csv = contentOf(file);
  return inPreparedRun(job, output, [&](RunContext& context) {
    long saved = 0;
    long refused = 0;
    const auto tell = [&](const ImportedSheet& sheet) {
      ++(sheet.saved ? saved : refused);
      print(sheet, output);
      goOnUnlessSignalled();
    };
    asOnlyJob(context, OnlyJob::SheetImport, [&] { importSheets(context, csv, tell); });
    return summed(saved, refused, output);
  });
}

int disposeCommand(const JobRun& job, const std::string& file, std::ostream& output, std::ostream& problems) {
  const auto rows = readDisposalRows(contentOf(file));
  return inRun(job, output, [&](RunContext& context) {
    const auto work = [&] {
      prepareRun(context, job.arguments);
      asOnlyJob(context, OnlyJob::Disposals, [&] { dispose(context, rows, problems); });
    };
    return runToEnd(context, work).value_or(0);
  });
}

}  // namespace zelkor
