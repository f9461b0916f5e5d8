#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "base/DateTime.h"

namespace zelkor {

struct SheetImportOptions {
  std::string arguments;  // the argument string of a run
  std::string file;
  std::optional<DateTime> today;
};

/// Saves the rows of a CSV file as change sheets; see importSheets. 0 when all of them were saved, else 1.
int importSheetsCommand(const SheetImportOptions& options, std::ostream& output);

}  // namespace zelkor
