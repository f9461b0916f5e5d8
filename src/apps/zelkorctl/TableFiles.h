#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "base/OutputFile.h"
#include "depreciation/DeprTable.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Where tables go, and in which form.
struct TableOptions {
  std::string format = "text";  // text, csv or xlsx
  std::string file = {};        // empty: the output, which xlsx does not take
  bool force = false;           // replaces a file that is there already
};

/// What stands above the first table.
struct TableHead {
  std::string period;                // "2020.05"
  std::vector<std::string> remarks;  // sentences
};

/// What is wrong with the options, or nothing.
std::string tableProblem(const TableOptions& options);

/// The file that they name, refused where it may not be written; none for the output.
std::unique_ptr<OutputFile> tableFile(const RunContext& run, const TableOptions& options);

/// Writes the tables below each other, in a workbook each on a sheet.
void writeTables(RunContext& run, const TableHead& head, std::vector<DeprTable> tables,
                 const TableOptions& options, std::ostream& out);

}  // namespace zelkor
