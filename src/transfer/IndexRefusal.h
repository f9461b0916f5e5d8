#pragma once

#include <optional>
#include <string>

#include "base/RuntimeError.h"

namespace zelkor {

/// Runs what creates an index; gives the reason when it is the index that is refused, and not its writing.
template <typename Create>
std::optional<std::string> refusalOf(Create create) {
  try {
    create();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DiskFull) || error.is(ErrorNumber::DeviceIo)) throw;
    return error.what();
  }
}

}  // namespace zelkor
