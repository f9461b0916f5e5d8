#pragma once

#include <iosfwd>
#include <string>

#include "apps/zelkorctl/TransferCommand.h"

namespace zelkor {

/// Carries the tables of a Jet file into a new target on either engine and prints beside what
/// `transferCommand` prints what else the file holds and lacks. `charset` is that of the texts in a Jet 3
/// file; empty for the usual one.
int importJetCommand(const std::string& file, const std::string& charset, const TransferOptions& options,
                     std::ostream& output);

}  // namespace zelkor
