#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/TableFiles.h"

namespace zelkor {

/// Writes what the monthly run would book, and books nothing. Status 1 with a sentence for each reason where
/// the run would not come to its end, 2 where the run type is another one.
int previewCommand(const JobRun& job, const TableOptions& options, std::ostream& output,
                   std::ostream& problems);

struct PlanOptions {
  std::size_t months = 12;
  std::string changes = {};  // a CSV file of planned additions and disposals
  std::string by = {};       // department, category, subject or card; empty: the first three
  TableOptions tables = {};  // json too
};

/// Writes the depreciation of the months to come, and stores nothing. Status 1 with a sentence for each card
/// or row that cannot be planned.
int planCommand(const JobRun& job, const PlanOptions& options, std::ostream& output, std::ostream& problems);

}  // namespace zelkor
