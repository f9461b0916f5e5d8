#include "reports/ReportExport.h"

#include <algorithm>
#include <ostream>

#include "base/Characters.h"
#include "base/Csv.h"
#include "base/GridSpans.h"
#include "base/TextGridPrinter.h"
#include "reports/WorkbookParts.h"

namespace zelkor {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kCountCaption = "数量";
constexpr std::size_t kMostDigits = 15;  // that a spreadsheet's number keeps

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

/// A number as reports write it: no blanks, no leading zero but one before the point.
bool isPlainNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  const bool digitsOnly = std::ranges::all_of(whole, isDigit) && std::ranges::all_of(decimals, isDigit);
  const bool leadingZero = whole.size() > 1 && whole.front() == '0';
  return digitsOnly && !leadingZero && !(whole.empty() && decimals.empty()) &&
         whole.size() + decimals.size() <= kMostDigits;
}

bool holdsNumbers(const TextGrid& grid, std::size_t column) {
  return grid.alignment(column) != Align::Left ||
         (grid.headerRows() > 0 && grid.text(grid.headerRows() - 1, column) == kCountCaption);
}

void printCsvLine(std::ostream& out, const TextGrid& grid, std::size_t row) {
  const char* separator = "";
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (grid.columnHidden(column)) continue;
    out << separator << spreadsheetField(grid.text(row, column));
    separator = ",";
  }
  out << "\r\n";
}

std::size_t visibleColumns(const TextGrid& grid, const CellSpan& span) {
  std::size_t count = 0;
  for (std::size_t column = span.firstColumn; column <= span.lastColumn; ++column) {
    if (!grid.columnHidden(column)) ++count;
  }
  return count;
}

void printHeaderCell(std::ostream& out, const TextGrid& grid, std::size_t row, std::size_t column) {
  const CellSpan span = shownCells(grid, row, column, 0, grid.headerRows() - 1);
  if (span.firstRow != row || span.firstColumn != column) return;
  out << "<th";
  if (visibleColumns(grid, span) > 1) out << " colspan=\"" << visibleColumns(grid, span) << '"';
  if (span.lastRow > row) out << " rowspan=\"" << span.lastRow - row + 1 << '"';
  out << '>' << markupText(grid.text(row, column)) << "</th>";
}

void printBodyCell(std::ostream& out, const TextGrid& grid, std::size_t row, std::size_t column) {
  static constexpr const char* kClasses[] = {"", " class=\"c\"", " class=\"r\""};
  out << "<td" << kClasses[static_cast<int>(grid.alignment(column))] << '>'
      << markupText(grid.text(row, column)) << "</td>";
}

void printHtmlRow(std::ostream& out, const TextGrid& grid, std::size_t row) {
  out << "<tr>";
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (grid.columnHidden(column)) continue;
    if (row < grid.headerRows()) {
      printHeaderCell(out, grid, row, column);
    } else {
      printBodyCell(out, grid, row, column);
    }
  }
  out << "</tr>\n";
}

constexpr std::string_view kStyle =
    "body{font-family:\"Noto Sans CJK SC\",sans-serif;margin:2em}"
    "table{border-collapse:collapse}"
    "th,td{border:1px solid #b5bcc4;padding:.25em .6em;text-align:left;white-space:pre}"
    "th{background:#eef1f4;text-align:center}"
    "td.r{text-align:right;font-variant-numeric:tabular-nums}td.c{text-align:center}";

}  // namespace

std::vector<std::string> captionLines(const ReportView& view) {
  std::vector<std::string> lines;
  if (view.unitLine != kUnitLineAsDrawn) lines.push_back(view.unitLine);
  std::string period = view.periodCaption;
  if (view.periodListVisible && view.selectedPeriod < view.periods.size()) {
    period += view.periods[view.selectedPeriod];
  }
  if (!period.empty()) lines.push_back(period);
  for (const ConditionLine& line : view.conditionLines) {
    if (line.visible && !line.text.empty()) lines.push_back(line.text);
  }
  return lines;
}

bool isNumberCell(const TextGrid& grid, std::size_t row, std::size_t column) {
  return row >= grid.headerRows() && holdsNumbers(grid, column) && isPlainNumber(grid.text(row, column));
}

void writeText(std::ostream& out, const std::string& title, const ReportView& view) {
  out << title << "\n";
  for (const std::string& line : captionLines(view)) out << line << "\n";
  out << "\n";
  printGrid(out, view.grid);
}

void writeCsv(std::ostream& out, const std::string& title, const ReportView& view) {
  out << kByteOrderMark << spreadsheetField(title) << "\r\n";
  for (const std::string& line : captionLines(view)) out << spreadsheetField(line) << "\r\n";
  for (std::size_t row = 0; row < view.grid.rows(); ++row) {
    if (!view.grid.rowHidden(row)) printCsvLine(out, view.grid, row);
  }
}

void writeHtml(std::ostream& out, const std::string& title, const ReportView& view) {
  out << "<!DOCTYPE html>\n<html lang=\"zh-CN\"><head><meta charset=\"utf-8\"><title>" << markupText(title)
      << "</title><style>" << kStyle << "</style></head>\n<body><h1>" << markupText(title) << "</h1>\n";
  for (const std::string& line : captionLines(view)) out << "<p>" << markupText(line) << "</p>\n";
  out << "<table>\n<thead>\n";
  for (std::size_t row = 0; row < view.grid.rows(); ++row) {
    if (row == view.grid.headerRows()) out << "</thead>\n<tbody>\n";
    if (!view.grid.rowHidden(row)) printHtmlRow(out, view.grid, row);
  }
  if (view.grid.rows() <= view.grid.headerRows()) out << "</thead>\n<tbody>\n";
  out << "</tbody>\n</table></body></html>\n";
}

void replaceUnwritable(ReportView& view) {
  for (std::string* text :
       {&view.unitLine, &view.periodCaption, &view.conditionLines[0].text, &view.conditionLines[1].text}) {
    *text = writable(*text);
  }
  for (std::string& period : view.periods) period = writable(period);
  for (std::size_t row = 0; row < view.grid.rows(); ++row) {
    for (std::size_t column = 0; column < view.grid.columns(); ++column) {
      const std::string& text = view.grid.text(row, column);
      if (findUnwritable(text) != std::string_view::npos) view.grid.setText(row, column, writable(text));
    }
  }
}

}  // namespace zelkor
