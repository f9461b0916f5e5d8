#include "apps/zelkorctl/TableFiles.h"

#include <ostream>
#include <utility>

#include "reports/ReportExport.h"
#include "reports/ReportFile.h"
#include "reports/ReportWorkbook.h"

namespace zelkor {
namespace {

std::string joined(const std::vector<std::string>& remarks) {
  std::string all;
  for (const std::string& remark : remarks) all += (all.empty() ? "说明：" : "；") + remark;
  return all;
}

/// The table as reports are shown, with the caption lines above it where `captions` says so.
ReportView viewOf(const TableHead& head, DeprTable table, bool captions) {
  ReportView view;
  view.title = std::move(table.title);
  view.periodCaption = captions ? "期间：" + head.period : "";
  view.conditionLines[0].text = captions ? joined(head.remarks) : "";
  view.grid = std::move(table.grid);
  replaceUnwritable(view);
  return view;
}

void writeWorkbook(RunContext& run, const TableHead& head, std::vector<DeprTable> tables, std::ostream& out) {
  Workbook book(out, {});
  for (DeprTable& table : tables) {
    FinishedReport report;
    report.view = viewOf(head, std::move(table), true);
    report.heading = headingOf(run, report.view);
    report.ledger = true;  // lines that can be chosen from
    book.add(std::move(report));
  }
  book.finish();
}

}  // namespace

std::string tableProblem(const TableOptions& options) {
  return options.format == "xlsx" && options.file.empty() ? "xlsx 要用 --out 指定文件" : "";
}

std::unique_ptr<OutputFile> tableFile(const RunContext& run, const TableOptions& options) {
  return options.file.empty() ? nullptr : reportFile(run, options.file, options.force);
}

void writeTables(RunContext& run, const TableHead& head, std::vector<DeprTable> tables,
                 const TableOptions& options, std::ostream& out) {
  if (options.format == "xlsx") return writeWorkbook(run, head, std::move(tables), out);
  bool first = true;
  for (DeprTable& table : tables) {
    const ReportView view = viewOf(head, std::move(table), first);
    if (options.format == "csv") {
      if (!first) out << "\r\n";
      writeCsv(out, view.title, view, false);
    } else {
      if (!first) out << '\n';
      writeText(out, view.title, view);
    }
    first = false;
  }
}

}  // namespace zelkor
