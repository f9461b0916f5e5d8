#include "reports/ReportExport.h"

#include <ostream>

#include "base/Characters.h"
#include "base/Csv.h"
#include "base/TextGridPrinter.h"

namespace zelkor {
namespace {

void printCsvLine(std::ostream& out, const TextGrid& grid, std::size_t row) {
  const char* separator = "";
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (grid.columnHidden(column)) continue;
    out << separator << spreadsheetField(grid.text(row, column));
    separator = ",";
  }
  out << "\r\n";
}

}  // namespace

std::vector<std::string> captionLines(const ReportView& view) {
  std::vector<std::string> lines;
  if (view.unitLine != kUnitLineAsDrawn) lines.push_back(view.unitLine);
  const std::string period = shownPeriod(view);
  if (!period.empty()) lines.push_back(period);
  for (const ConditionLine& line : view.conditionLines) {
    if (line.visible && !line.text.empty()) lines.push_back(line.text);
  }
  return lines;
}

void writeText(std::ostream& out, const std::string& title, const ReportView& view) {
  out << title << "\n";
  for (const std::string& line : captionLines(view)) out << line << "\n";
  out << "\n";
  printGrid(out, view.grid);
}

void writeCsv(std::ostream& out, const std::string& title, const ReportView& view, bool byteOrderMark) {
  if (byteOrderMark) out << kByteOrderMark;
  out << spreadsheetField(title) << "\r\n";
  for (const std::string& line : captionLines(view)) out << spreadsheetField(line) << "\r\n";
  for (std::size_t row = 0; row < view.grid.rows(); ++row) {
    if (!view.grid.rowHidden(row)) printCsvLine(out, view.grid, row);
  }
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
