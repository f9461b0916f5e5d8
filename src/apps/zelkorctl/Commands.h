#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>

#include "base/DateTime.h"
#include "base/TerminalDialogs.h"
#include "store/accountset/AccountSet.h"

// The calls of zelkorctl. Each prints to `output` and answers the exit status; what cannot be done is raised
// as RuntimeError.
namespace zelkor {

/// Creates the account set in files, or on the server that `server` tells how to reach.
int createCommand(const std::filesystem::path& directory, const std::string& server,
                  const AccountSetOptions& options, std::ostream& output);

/// Brings the part of an account set on a server up to date that the file names.
int renewCommand(const std::filesystem::path& file, std::ostream& output);

/// Runs one statement of the dialect. Rows are printed with tabs and a header line, or as a JSON array; an
/// action prints the rows that it touched.
int sqlCommand(const std::string& file, const std::string& statement, bool json, std::ostream& output);

/// Prints the statement as `engine` ("sqlite" or "postgresql") is given it.
int translateCommand(const std::string& statement, const std::string& engine, std::ostream& output);

struct ImportOptions {
  std::string arguments;  // the argument string of a run
  std::string file;
  int newType = 1;
  std::optional<DateTime> today;
};

int importCommand(const ImportOptions& options, std::ostream& output, std::ostream& problems);

struct RunOptions {
  std::string arguments;
  TerminalDialogs::Options dialogs;
  std::optional<DateTime> today;
};

int runCommand(const RunOptions& options, std::ostream& output, std::istream& input);

}  // namespace zelkor
