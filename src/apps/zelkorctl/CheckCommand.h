#pragma once

#include <iosfwd>

#include "apps/zelkorctl/Asked.h"

namespace zelkor {

/// Prints what checkBooks finds, as text, JSON or CSV. The status is 0 when nothing is to be put right, 1
/// when something is, 2 for a wrong call.
int checkCommand(const Asked& asked, std::ostream& output, std::ostream& problems);

}  // namespace zelkor
