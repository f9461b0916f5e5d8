#pragma once

#include <string>

namespace zelkor::bench {

/// The reads and writes of a monthly run for January 2020 by the bare client library of the server: prepared
/// statements, each a round trip, in one transaction; the figures in plain doubles. Leaves the same rows as
/// the run.
void serverMonthlyRunFloor(const std::string& conninfo);

}  // namespace zelkor::bench
