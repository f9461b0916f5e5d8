#pragma once

#include <iosfwd>
#include <string>

#include "apps/zelkorctl/Asked.h"

namespace zelkor {

/// The data file that a call works in: that of its account set, or the file that it names. Empty for a call
/// that has neither.
std::string booksOf(const Asked& asked);

/// Tells what makes the connection slow to the books that a call works in, where there is something to tell.
void tellConnection(const Asked& asked, std::ostream& output);

}  // namespace zelkor
