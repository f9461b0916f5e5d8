#pragma once

#include <iosfwd>

#include "apps/zelkorctl/CommandRun.h"

namespace zelkor {

/// Prints the steps of the operating date's month, where each stands, and the figures of the books; as JSON
/// for scripts.
int statusCommand(const JobRun& job, bool json, std::ostream& output, std::ostream& problems);

}  // namespace zelkor
