#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "base/DateTime.h"

namespace zelkor {

struct DisposeOptions {
  std::string arguments;  // the argument string of a run
  std::string file;
  std::optional<DateTime> today;
};

/// Takes the assets of a CSV file off the books, row by row as the screen's list. Rows that the screen would
/// not have let in are told in `problems` by line and column, and nothing is done then.
///
/// 0 when all of them are disposed of; 1 when something was refused or ended in the runtime's report.
int disposeCommand(const DisposeOptions& options, std::ostream& output, std::ostream& problems);

}  // namespace zelkor
