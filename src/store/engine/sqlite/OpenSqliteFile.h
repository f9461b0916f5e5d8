#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "store/engine/sqlite/SqliteEngine.h"

namespace zelkor {

/// Opens a file that is there. For reading alone it may lie on a medium or in a folder that cannot be
/// written. Raises RuntimeError.
SqliteHandle openSqliteFile(const std::string& path, SqliteEngine::Access access);

/// What the file begins with, at most that many bytes; nothing when it cannot be read. It is read as the
/// engine reads: whoever closes a file in any other way gives up the locks of all connections that the
/// process has to it.
std::string beginningOfFile(const std::string& path, std::size_t most);

/// Error 3051 when the engine takes no path of that length, with `spare` bytes for an ending.
void requireShortPath(const std::filesystem::path& file, std::size_t spare = 0);

}  // namespace zelkor
