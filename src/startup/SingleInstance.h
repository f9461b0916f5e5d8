#pragma once

#include <memory>
#include <string>

#include "base/LockedFile.h"

namespace zelkor {

/// The lock by which one user runs one copy of the module on a machine at a time. It goes with the process.
class SingleInstance {
 public:
  /// Takes the lock; false when another process holds it. Error 57 when there is no place for it.
  bool acquire();

 private:
  std::unique_ptr<LockedFile> lock_;
};

/// A folder on this machine that nobody but this user may look into: what XDG_RUNTIME_DIR names, where that
/// is one, else a folder of the temporary folder that is made for it. Error 57 when somebody has been there
/// before.
std::string runtimeFolder();

}  // namespace zelkor
