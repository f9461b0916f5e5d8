#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/ImportFile.h"
#include "store/accountset/AccountSet.h"

// The calls of zelkorctl. Each prints to `output` and returns the exit status; what cannot be done is raised
// as RuntimeError.
namespace zelkor {

/// Creates the account set in files, or on the server that `server` describes.
int createCommand(const std::filesystem::path& directory, const std::string& server,
                  const AccountSetOptions& options, std::ostream& output);

/// Takes the data file of an account set, or what it names on a server, to this program's revision; prints
/// what was done.
int renewCommand(const std::string& file, std::ostream& output);

/// Runs one statement of the dialect. Rows are printed with tabs and a header line, or as a JSON array; an
/// action prints the rows that it touched.
int sqlCommand(const std::string& file, const std::string& statement, bool json, std::ostream& output);

/// Prints the statement as `engine` ("sqlite" or "postgresql") is given it.
int translateCommand(const std::string& statement, const std::string& engine, std::ostream& output);

/// Runs the batch job that the argument string names.
int runCommand(const JobRun& job, std::ostream& output);

// Jobs that store the rows of a file. The status is 1 when a row was refused.

/// Saves the rows as cards; see importCards.
int importCardsCommand(const JobRun& job, const ImportOptions& options, int newType, std::ostream& output,
                       std::ostream& problems);

/// Saves the rows as change sheets; see importSheets.
int importSheetsCommand(const JobRun& job, const ImportOptions& options, std::ostream& output);

/// Stores the rows as the month's work of cards; see importWorkload.
int importWorkloadCommand(const JobRun& job, const ImportOptions& options, std::ostream& output,
                          std::ostream& problems);

/// Takes the assets of the rows off the books as the screen's list does. Rows that the screen would not have
/// let in are named in `problems` by line and column, and nothing is done then. The status is 1 too when the
/// job ended in the runtime's report.
int disposeCommand(const JobRun& job, const ImportOptions& options, std::ostream& output,
                   std::ostream& problems);

}  // namespace zelkor
