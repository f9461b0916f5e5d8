#pragma once

#include <memory>
#include <span>
#include <string>

#include "base/LockedFile.h"

namespace zelkor {

/// The lock by which one user runs one copy of the module on a machine at a time. It goes with the process.
class SingleInstance {
 public:
  /// Takes the lock; false when another process holds it. Errors as `LockedFile::take`, and 57 when there is
  /// no place for it.
  bool acquire();

 private:
  std::unique_ptr<LockedFile> lock_;
};

/// A folder on this machine that nobody but this user may look into, the same for all programs of the user:
/// what XDG_RUNTIME_DIR names, the system's runtime folder of the user, or one below /tmp that is made for
/// it. Error 57 when somebody else has been there before.
std::string runtimeFolder();

/// The first of `offered` that is a folder of this user alone, else `made`, which is made when it is missing.
std::string privateFolder(std::span<const std::string> offered, const std::string& made);

}  // namespace zelkor
