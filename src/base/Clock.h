#pragma once

#include "base/DateTime.h"

namespace zelkor {

/// The system date and time. Injected, so that a test or a rerun can set it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Local date and time now, to the second.
  virtual DateTime now() const = 0;
};

class SystemClock final : public Clock {
 public:
  DateTime now() const override;
};

/// A clock that stands still until it is set.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(DateTime now) : now_(now) {}
  DateTime now() const override { return now_; }
  void set(DateTime now) { now_ = now; }

 private:
  DateTime now_;
};

}  // namespace zelkor
