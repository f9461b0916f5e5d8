#pragma once

#include "Sqlite.h"

namespace zelkor::bench {

/// The reads and writes of the closing of January 2020 on the bare engine: the same tables copied and the
/// same rows read and updated, with prepared statements in one transaction.
void monthEndFloor(BareFile& file);

}  // namespace zelkor::bench
