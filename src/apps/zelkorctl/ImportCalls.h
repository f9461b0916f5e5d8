#pragma once

#include <vector>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {

/// The calls that store what a file of rows holds.
std::vector<Call> importCalls();

}  // namespace zelkor
