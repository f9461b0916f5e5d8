#pragma once

#include <filesystem>

#include "store/engine/sqlite/SqliteEngine.h"

namespace zelkor {

/// Opens a file that is there. For reading alone it may lie on a medium or in a folder that cannot be
/// written. Raises RuntimeError.
SqliteHandle openSqliteFile(const std::string& path, SqliteEngine::Access access);

/// Error 3051 when the engine takes no path of that length, with `spare` bytes for an ending.
void requireShortPath(const std::filesystem::path& file, std::size_t spare = 0);

}  // namespace zelkor
