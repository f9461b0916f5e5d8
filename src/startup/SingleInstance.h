#pragma once

#include <string>

namespace zelkor {

/// The machine-wide lock by which one user runs one copy of the module at a time. It is held by an open
/// descriptor, so that it goes with the process on whatever path that ends.
class SingleInstance {
 public:
  SingleInstance() = default;
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  ~SingleInstance();

  /// Takes the lock; false when another process holds it. Error 57 when the system gives none.
  bool acquire();

 private:
  int descriptor_ = -1;
};

}  // namespace zelkor
