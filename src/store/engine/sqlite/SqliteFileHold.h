#pragma once

#include <string>

#include "base/FileAccess.h"

namespace zelkor {

/// Keeps every connection out of a data file that cannot be opened itself, because it is damaged, for as long
/// as the descriptor is open. Error 3045 when somebody has it open, else as `systemError`.
FileDescriptor holdSqliteFile(const std::string& path);

}  // namespace zelkor
