#include <algorithm>
#include <numbers>
#include <ostream>

#include "base/Format.h"
#include "base/GridSpans.h"
#include "base/Text.h"
#include "reports/ReportCells.h"
#include "reports/ReportExport.h"
#include "reports/WorkbookParts.h"

namespace zelkor {
namespace {

// On a screen the table moves under its header rows and beside its first column; on paper the former are
// repeated. Cells have lines of their own there, which go along.
constexpr std::string_view kStyle =
    "body{font-family:\"Noto Sans CJK SC\",sans-serif;margin:1.5em;color:#1f2933}"
    "h1{font-size:1.4em;text-align:center;margin:0 0 .6em}"
    ".line{display:flex;flex-wrap:wrap;justify-content:space-between;gap:0 2em}"
    ".table{overflow:auto;max-height:92vh;margin:.6em 0}"
    "table{border-collapse:separate;border-spacing:0;width:100%}"
    "table,th,td{border:0 solid #b5bcc4}table{border-width:1px 0 0 1px}"
    "th,td{border-width:0 1px 1px 0;padding:.25em .6em;text-align:left;vertical-align:top}"
    "th{background:#eef1f4;text-align:center;vertical-align:middle;min-width:4em}"
    "thead{position:sticky;top:0;z-index:1}"
    "td{white-space:pre;min-width:3em}"
    "td.r{text-align:right;font-variant-numeric:tabular-nums}td.c{text-align:center}"
    "tr.t td{font-weight:bold}"
    "tbody td:first-child{position:sticky;left:0;background:#fff}"
    "thead tr:first-child th:first-child{position:sticky;left:0}"
    "@media screen and (max-width:40em){body{margin:.7em;font-size:.9em}}"
    "@page{margin:12mm;@bottom-center{content:\"第 \" counter(page) \" 页 共 \" counter(pages) \" 页\";"
    "font:9pt \"Noto Sans CJK SC\",sans-serif}}"
    "@media print{body{margin:0}.table{overflow:visible;max-height:none}"
    "table{border-collapse:collapse}th,td{border-width:1px;padding:.2em .4em}th{min-width:3em}"
    "thead{display:table-header-group;position:static}"
    "td{min-width:0}tr{break-inside:avoid}tr.t{break-before:avoid}"
    "tbody td:first-child,thead tr:first-child th:first-child{position:static}}";

// Points, without the margins.
constexpr double kAcrossA4 = 770;
constexpr double kAcrossA3 = 1120;
constexpr double kUsualSize = 9;
constexpr double kSmallestSize = 7;
constexpr double kMargins = 68;

constexpr double kWidestText = 12;  // of the letters' size

struct ColumnTexts {
  double width = 0;     // of the letters' size
  bool broken = false;  // into lines: longer ones are, no others
};

ColumnTexts textsOf(const TextGrid& grid, std::size_t column) {
  constexpr double kDigit = 0.6;  // a bold one
  std::size_t widest = 0;
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (row >= grid.headerRows() || !grid.rowMerged(row)) {
      widest = std::max(widest, displayWidth(grid.text(row, column)));
    }
  }
  const double width = kDigit * static_cast<double>(widest);
  if (grid.alignment(column) == Align::Left && width > kWidestText) return {kWidestText, true};
  return {width, false};
}

std::vector<ColumnTexts> shownTexts(const TextGrid& grid) {
  std::vector<ColumnTexts> texts;
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (!grid.columnHidden(column)) texts.push_back(textsOf(grid, column));
  }
  return texts;
}

std::string brokenColumns(const std::vector<ColumnTexts>& texts) {
  std::string cells;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts[i].broken) continue;
    cells += (cells.empty() ? "td:nth-child(" : ",td:nth-child(") + std::to_string(i + 1) + ")";
  }
  if (cells.empty()) return cells;
  return cells + "{white-space:pre-wrap;overflow-wrap:anywhere;min-width:" + Format(kWidestText, "0") + "em}";
}

/// Paper and letters on which the table is not cut: A4, A3, or what a printer makes smaller as a whole.
std::string pageStyle(const std::vector<ColumnTexts>& texts) {
  constexpr double kPadding = 1;
  constexpr double kLeast = 3;
  double width = 0;
  for (const ColumnTexts& one : texts) width += kPadding + std::max(one.width, kLeast);
  const double across = width * kSmallestSize <= kAcrossA4 ? kAcrossA4 : kAcrossA3;
  const double size = std::clamp(across / std::max(width, 1.0), kSmallestSize, kUsualSize);
  std::string paper = across == kAcrossA4 ? "A4 landscape" : "A3 landscape";
  if (width * size > across) {
    const double wide = width * size + kMargins;
    paper = Format(wide, "0") + "pt " + Format(wide / std::numbers::sqrt2, "0") + "pt";
  }
  return "@page{size:" + paper + "}@media print{body{font-size:" + Format(size, "0.0") + "pt}}";
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
  out << (grid.isTotal(row) ? "<tr class=\"t\">" : "<tr>");
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

void printMarginLine(std::ostream& out, const MarginLine& line) {
  out << "<div class=\"line\">";
  for (const std::string* text : {&line.left, &line.centre, &line.right}) {
    if (!text->empty()) out << "<span>" << markupText(*text) << "</span>";
  }
  out << "</div>\n";
}

void printTable(std::ostream& out, const TextGrid& grid) {
  out << "<div class=\"table\"><table>\n<thead>\n";
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (row == grid.headerRows()) out << "</thead>\n<tbody>\n";
    if (!grid.rowHidden(row)) printHtmlRow(out, grid, row);
  }
  if (grid.rows() <= grid.headerRows()) out << "</thead>\n<tbody>\n";
  out << "</tbody>\n</table></div>\n";
}

}  // namespace

void writeHtml(std::ostream& out, FinishedReport report, bool money) {
  dressCells(report.view.grid, {.money = money});
  const std::vector<ColumnTexts> texts = shownTexts(report.view.grid);
  const std::string title = markupText(report.heading.title);
  out << "<!DOCTYPE html>\n<html lang=\"zh-CN\"><head><meta charset=\"utf-8\">"
         "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\"><title>"
      << title << "</title><style>" << kStyle << brokenColumns(texts) << pageStyle(texts)
      << "</style></head>\n<body><h1>" << title << "</h1>\n";
  for (const MarginLine& line : report.heading.head()) printMarginLine(out, line);
  printTable(out, report.view.grid);
  printMarginLine(out, report.heading.foot());
  out << "</body></html>\n";
}

}  // namespace zelkor
