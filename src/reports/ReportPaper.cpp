#include "reports/ReportPaper.h"

#include <utility>

#include "paper/PagedTable.h"
#include "reports/ReportCells.h"

namespace zelkor {
namespace {

constexpr std::string_view kDigest = "摘要";

/// Debits and credits add up; balances and their quantities are those of the last line.
CarriedOver carriedIn(const TextGrid& grid, std::size_t column) {
  const std::string& caption = grid.text(grid.headerRows() - 1, column);
  if (caption == "借方" || caption == "贷方") return CarriedOver::Sum;
  if (caption == "余额" || caption == "净值") return CarriedOver::Last;
  return caption == "数量" && grid.alignment(column) == Align::Right ? CarriedOver::Last
                                                                     : CarriedOver::Nothing;
}

void carryOver(PaperTable& table) {
  for (std::size_t column = 0; column < table.grid.columns(); ++column) {
    table.carried.push_back(carriedIn(table.grid, column));
    if (table.grid.text(table.grid.headerRows() - 1, column) == kDigest) table.carriedLabel = column;
  }
}

}  // namespace

PaperTable paperTable(FinishedReport report, bool money) {
  PaperTable table;
  table.title = report.heading.title;
  table.head = report.heading.head();
  table.foot = report.heading.foot();
  table.grid = std::move(report.view.grid);
  table.thousands = money;
  if (report.ledger && table.grid.headerRows() > 0) carryOver(table);
  dressCells(table.grid, {.money = money});
  return table;
}

ReportPdf::ReportPdf(std::ostream& out, const std::string& title, PaperOptions options, bool outline)
    : document_(out, title), options_(std::move(options)), outline_(outline) {}

void ReportPdf::add(FinishedReport report) {
  const PaperTable table = paperTable(std::move(report), options_.money);
  const PagedTable paged(table, options_.form.size(), document_.widths());
  if (outline_) document_.beginPart(table.title);
  for (std::size_t page = 0; page < paged.pages(); ++page) {
    document_.addPage(paged.page(page), paged.size());
    if (options_.progress) options_.progress(page + 1, paged.pages());
  }
}

}  // namespace zelkor
