#pragma once

#include <filesystem>
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
/// Raises error 57, a file that cannot be written.
[[noreturn]] void cannotWrite(const std::filesystem::path& file, const std::string& reason);

/// A workbook with numbers as numbers and the header rows frozen, written row by row. Raises
/// error 57 when the file cannot be written; none is left then.
void writeXlsx(const std::filesystem::path& file, const std::string& title, const ReportView& view);

}  // namespace zelkor
