#pragma once

#include <iosfwd>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/ImportFile.h"

// What imports would make of a file. The status is 1 where not all of its rows would be stored.
namespace zelkor {

int previewCardsCommand(const JobRun& job, const ImportOptions& options, int newType, std::ostream& output);
int previewSheetsCommand(const JobRun& job, const ImportOptions& options, std::ostream& output);

}  // namespace zelkor
