#pragma once

#include <iosfwd>

#include "apps/zelkorctl/Asked.h"

namespace zelkor {

/// Tells what makes the connection slow to the books that a call works in, where there is something to tell.
void tellConnection(const Asked& asked, std::ostream& output);

}  // namespace zelkor
