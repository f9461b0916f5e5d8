#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <utility>

#include "apps/zelkorctl/BackupCommands.h"
#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/ToldLines.h"
#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "cards/CardImport.h"
#include "cards/CardRow.h"
#include "changes/SheetImport.h"
#include "closing/DisposalImport.h"
#include "depreciation/WorkloadImport.h"
#include "startup/Main.h"
#include "startup/OnlyJob.h"
#include "startup/ProgramEnd.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// How many rows of a file ended in which way.
struct Sums {
  long stored = 0;
  long before = 0;
  long refused = 0;
};

long rowsOf(const Sums& sums) {
  return sums.stored + sums.before + sums.refused;
}

std::string textOf(const Sums& sums) {
  const std::string before = sums.before > 0 ? sql("以前已保存 ", sums.before, " 行，") : "";
  return sql("已保存 ", sums.stored, " 行，", before, "拒绝 ", sums.refused, " 行");
}

/// Prints them; returns the status.
int summed(const Sums& sums, std::ostream& output) {
  output << "共 " << rowsOf(sums) << " 行：" << textOf(sums) << '\n';
  return sums.refused == 0 ? 0 : 1;
}

void count(SheetEnd end, Sums& sums) {
  ++(end == SheetEnd::Saved ? sums.stored : end == SheetEnd::Before ? sums.before : sums.refused);
}

std::string lineOf(const ImportedSheet& sheet) {
  std::string line = sheet.line > 0 ? sql("第", sheet.line, "行") : "";
  if (sheet.row) line += " 卡片 " + sheet.row->cardNum + " " + sheet.row->kind;
  line +=
      (line.empty() ? "" : "：") + std::string(sheet.end == SheetEnd::Refused ? "" : "变动单 ") + sheet.text;
  return line + (sheet.end == SheetEnd::Before ? "，以前已保存，不再保存" : "");
}

/// The rows of a file whose ends are told later than they are read, but in their order.
class RowsReadOn final : public TableRows {
 public:
  explicit RowsReadOn(KeptRows& rows) : rows_(rows) {}

  std::optional<CsvRecord> next() override try {
    auto record = rows_.next();
    if (record && std::exchange(hasHeader_, true)) read_.push_back(rows_.last());
    return record;
  } catch (const CsvError&) {
    read_.push_back(rows_.last());
    throw;
  }
  std::size_t count() const override { return rows_.count(); }
  /// The row whose end is told next.
  KeptRows::Row takeFirst() {
    KeptRows::Row row = std::move(read_.front());
    read_.pop_front();
    return row;
  }

 private:
  KeptRows& rows_;
  bool hasHeader_ = false;
  std::deque<KeptRows::Row> read_;
};

/// Tells how far a file came that the program does not go on with. Where it cannot be made sure that what was
/// saved is on disk nothing is reported; given again, the file reports those rows as saved before.
void tellHowFar(Workspace& workspace, ToldLines& told, const Sums& sums, std::ostream& output) {
  if (rowsOf(sums) == 0 || workspace.inTransaction()) return;
  try {
    told.tell();
  } catch (const RuntimeError&) {
    return;
  }
  output << "中断：" << textOf(sums) << "，其余未处理\n" << std::flush;
}

/// Does the work, and prints the lines that wait where the program is to end in it. After an error nobody
/// knows which of them are on disk; when the file is given again they are reported as saved before.
void tellAtEnd(ToldLines& told, const std::function<void()>& work) {
  try {
    work();
  } catch (const EndProgram&) {
    told.tell();
    throw;
  }
}

/// How far a file of disposals has come.
struct Disposals {
  std::size_t rows = 0;
  long disposed = 0;
  long before = 0;
};

std::string lineOf(const ImportedDisposal& disposal) {
  const std::string line = sql("第", disposal.line, "行 卡片 ", disposal.cardNum, "：");
  if (disposal.end == DisposalEnd::Disposed) return line + "已减少";
  if (disposal.end == DisposalEnd::Before) return line + "以前已减少，不再减少";
  return line + (disposal.offTheBooks ? "已减少，但" : "未减少，") + "在此因错误中断";
}

void dispose(RunContext& context, std::span<const CsvTableRow> rows, Disposals& sums, ToldLines& told,
             std::ostream& problems) {
  DisposalImport import(context, rows);
  for (const std::string& problem : import.problems()) problems << problem << '\n';
  if (!import.problems().empty()) throw EndProgram{1};
  if (refusedBeforeDepreciation(context)) throw EndProgram{1};
  sums.rows = rows.size();
  const bool whole = import.dispose([&](const ImportedDisposal& disposal) {
    if (disposal.offTheBooks) ++(disposal.end == DisposalEnd::Before ? sums.before : sums.disposed);
    told.add(lineOf(disposal));
    if (disposal.end == DisposalEnd::Broken) {
      told.tell();
    } else {
      goOnUnlessSignalled();
    }
  });
  if (!whole) throw EndProgram{1};
  tellDisposed(context);
}

void printSums(const Disposals& sums, std::ostream& output) {
  if (sums.rows == 0) return;
  output << "共 " << sums.rows << " 行：已减少 " << sums.disposed << " 行，";
  if (sums.before > 0) output << "以前已减少 " << sums.before << " 行，";
  output << "未减少 " << static_cast<long>(sums.rows) - sums.disposed - sums.before << " 行\n";
}

/// Imports a file whose good rows are stored together.
int importTogether(const JobRun& job, ImportFile& file, OnlyJob kind,
                   const std::function<ImportResult(RunContext&, ImportProblems&)>& import,
                   std::ostream& output, std::ostream& problems) {
  catchEndSignals();
  return inPreparedRun(job, output, [&](RunContext& context) {
    ImportProblems told(problems, file.rows());
    ImportResult result;
    asOnlyJob(context, kind, [&] {
      backUpBefore(job, context, "导入前", output);
      result = import(context, told);
    });
    problems.flush();
    const int status = summed({.stored = result.stored, .refused = result.refused}, output);
    file.writeRefused(output);
    return status;
  });
}

}  // namespace

int importCardsCommand(const JobRun& job, const ImportOptions& options, int newType, std::ostream& output,
                       std::ostream& problems) {
  ImportFile file(options, registerCaptions());
  return importTogether(
      job, file, OnlyJob::CardImport,
      [&](RunContext& context, ImportProblems& told) {
        return importCards(context, file.rows(), newType, told);
      },
      output, problems);
}

int importWorkloadCommand(const JobRun& job, const ImportOptions& options, std::ostream& output,
                          std::ostream& problems) {
  ImportFile file(options, workloadCaptions());
  return importTogether(
      job, file, OnlyJob::WorkloadImport,
      [&](RunContext& context, ImportProblems& told) { return importWorkload(context, file.rows(), told); },
      output, problems);
}

int importSheetsCommand(const JobRun& job, const ImportOptions& options, std::ostream& output) {
  ImportFile file(options, sheetCaptions());
  catchEndSignals();
  return inPreparedRun(job, output, [&](RunContext& context) {
    Sums sums;
    ToldLines told(context.engine, output);
    RowsReadOn rows(file.rows());
    const auto ended = [&](const ImportedSheet& sheet) {
      count(sheet.end, sums);
      told.add(lineOf(sheet));
      KeptRows::Row row = rows.takeFirst();
      if (sheet.end == SheetEnd::Refused) file.rows().refuse(std::move(row), lineOf(sheet));
    };
    asOnlyJob(context, OnlyJob::SheetImport, [&] {
      backUpBefore(job, context, "导入前", output);
      try {
        importSheets(context, rows, ended);
      } catch (...) {
        tellHowFar(context.engine.workspace(), told, sums, output);
        throw;
      }
    });
    told.tell();
    const int status = summed(sums, output);
    file.writeRefused(output);
    return status;
  });
}

int disposeCommand(const JobRun& job, const ImportOptions& options, std::ostream& output,
                   std::ostream& problems) {
  ImportFile file(options, disposalCaptions());
  const auto rows = readDisposalRows(file.rows());
  catchEndSignals();
  return inRun(job, output, [&](RunContext& context) {
    Disposals sums;
    ToldLines told(context.engine, output);
    context.dialogs.setBeforeShowing([&told] { told.tell(); });
    const auto work = [&] {
      prepareRun(context, job.arguments);
      asOnlyJob(context, OnlyJob::Disposals, [&] {
        backUpBefore(job, context, "减少资产前", output);
        tellAtEnd(told, [&] { dispose(context, rows, sums, told, problems); });
      });
    };
    const int status = runToEnd(context, work).value_or(0);
    printSums(sums, output);
    return status;
  });
}

}  // namespace zelkor
