#pragma once

#include <vector>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {

/// The calls that run the month's jobs or tell what they will come to.
std::vector<Call> runCalls();

}  // namespace zelkor
