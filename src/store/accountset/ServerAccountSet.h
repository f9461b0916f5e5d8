#pragma once

#include <filesystem>
#include <string>

#include "store/accountset/AccountSet.h"

namespace zelkor {

/// Creates the schemas of a new account set on a server and writes `directory`/ZkData.Mdb and
/// `directory`/ZkSystem.Mdb, which name them. `conninfo` is libpq's, without a password. Raises RuntimeError
/// when a file or schema is there already, the server cannot be reached or its database is not fit for
/// account sets; leaves nothing behind then.
void createServerAccountSet(const std::string& conninfo, const std::filesystem::path& directory,
                            const AccountSetOptions& options);

/// Creates a schema with the functions that statements call, without tables, and the file that names it.
void createServerSchema(const std::string& conninfo, const std::string& schema,
                        const std::filesystem::path& file);

/// The server that the file names, as libpq's conninfo; empty for a file that names none. Error 3343 where it
/// names one wrongly.
std::string serverOf(const std::string& file);

}  // namespace zelkor
