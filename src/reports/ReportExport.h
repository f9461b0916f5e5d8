#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "reports/ReportView.h"

// A report in the forms in which it leaves the program: title, caption lines, grid. Hidden columns and rows
// are left out.
namespace zelkor {

/// The caption lines that are to be seen: unit, period, conditions.
std::vector<std::string> captionLines(const ReportView& view);

/// True for a cell that holds an amount or a count and not a code that looks like one.
bool isNumberCell(const TextGrid& grid, std::size_t row, std::size_t column);

void writeText(std::ostream& out, const std::string& title, const ReportView& view);
/// UTF-8 with a byte-order mark, by which spreadsheets know it.
void writeCsv(std::ostream& out, const std::string& title, const ReportView& view);
/// A whole page with the grid as a table.
void writeHtml(std::ostream& out, const std::string& title, const ReportView& view);
/// A workbook with numbers as numbers, all else as text and the header rows frozen. Error 57 for a report
/// that is larger than a sheet may be.
void writeXlsx(std::ostream& out, const std::string& title, const ReportView& view);

/// Characters that no text may hold give way to the mark for what cannot be shown.
void replaceUnwritable(ReportView& view);

}  // namespace zelkor
