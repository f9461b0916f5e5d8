#pragma once

#include "Sqlite.h"

namespace zelkor::bench {

/// The reads and writes of a monthly run for January 2020 on the bare engine: prepared statements, one
/// transaction, the figures in plain doubles. Leaves the same rows as the run.
void monthlyRunFloor(BareFile& file);

}  // namespace zelkor::bench
