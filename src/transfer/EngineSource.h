#pragma once

#include <memory>
#include <string>

#include "transfer/TransferSource.h"

namespace zelkor {

/// Opens an account set's file, of SQLite or one that names a server's schema, to read one state of it.
/// Errors as openDataFile's; a file that may not be written is opened all the same.
std::unique_ptr<TransferSource> openSource(const std::string& path);

}  // namespace zelkor
