#pragma once

#include <string>

#include "store/engine/Database.h"

namespace zelkor {

/// Opens a data file for who only reads, on a connection of its own: the file may be read-only. Errors: those
/// of openDataFileForReading.
Database openDatabaseForReading(const std::string& path);

}  // namespace zelkor
