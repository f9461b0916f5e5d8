#pragma once

#include <string>

#include "store/engine/Database.h"

namespace zelkor {

/// Opens a data file for who only reads, on a connection of its own: the file may be read-only. Errors: those
/// of openDataFileForReading. What an administrator should know of books that are older than the program goes
/// to `advice`, empty for all others.
Database openDatabaseForReading(const std::string& path, std::string* advice = nullptr);

}  // namespace zelkor
