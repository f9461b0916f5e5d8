#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

#include "transfer/Transfer.h"

namespace zelkor {

/// Where a transfer goes: a new SQLite file, or with `server` (libpq's words) the file that names the new
/// `schema` there.
struct TransferOptions {
  std::string source;  // the file whose permissions the target gets
  std::filesystem::path target;
  std::string server;
  std::string schema;  // empty: schemaFor(target)
  bool check = false;  // compare both when all is done
};

/// Carries the source into a new target and prints what became of each table, the problems by name and a sum
/// line; with the check, its differences. Answers the exit status: 1 when something could not be carried as
/// it is or the check differs. What cannot be done at all is raised as RuntimeError and leaves no target.
int transferCommand(TransferSource& source, const TransferOptions& options, std::ostream& output);

}  // namespace zelkor
