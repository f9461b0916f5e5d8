#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace zelkor {

/// Why a call of the system has failed with that `errno`, for a user; in the system's words where it is rare.
std::string systemReason(int failure);

/// What the data files would raise for such a failure of the system, `errno` or its like: disk full (3183),
/// read-only or without the right (3051), no such folder (3024); else error 57. `attempt` says what failed.
RuntimeError systemError(const std::string& attempt, int failure);

}  // namespace zelkor
