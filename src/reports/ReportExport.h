#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "reports/ReportHeading.h"
#include "reports/ReportView.h"

// A report in the forms in which it leaves the program: title, caption lines, grid. Hidden columns and rows
// are left out.
namespace zelkor {

/// The caption lines that are to be seen: unit, period, conditions.
std::vector<std::string> captionLines(const ReportView& view);

void writeText(std::ostream& out, const std::string& title, const ReportView& view);
/// UTF-8, on demand with a byte-order mark, by which spreadsheets know it.
void writeCsv(std::ostream& out, const std::string& title, const ReportView& view, bool byteOrderMark);
/// A page that needs nothing else, with the report as a table, on demand with two decimals and separated
/// thousands.
void writeHtml(std::ostream& out, FinishedReport report, bool money);

/// Characters that no text may hold give way to the mark for what cannot be shown.
void replaceUnwritable(ReportView& view);

}  // namespace zelkor
