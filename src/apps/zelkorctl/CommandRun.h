#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Clock.h"

// What the jobs of zelkorctl have in common.
namespace zelkor {

/// A clock that stands at `today`, or the system's.
std::unique_ptr<Clock> clockOf(std::optional<DateTime> today);

/// The file's bytes. Error 3024 tells why it cannot be read.
std::string contentOf(const std::string& path);

}  // namespace zelkor
