#pragma once

#include <iosfwd>
#include <string>

#include "apps/zelkorctl/TransferCommand.h"

namespace zelkor {

/// Copies an account set's file, of SQLite or on a server, to a new place on either engine.
int copyCommand(const std::string& source, const TransferOptions& options, std::ostream& output);

}  // namespace zelkor
