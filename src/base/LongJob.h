#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "base/CoarseClock.h"
#include "base/Dialogs.h"

namespace zelkor {

/// Tells the person in front how far a long job has come: not at all in its first moments, later a few times
/// a second. What was shown goes when the job does.
class LongJob {
 public:
  using Milliseconds = std::chrono::milliseconds;
  static constexpr Milliseconds kUsualPause{250};

  /// `pause` lies between two looks at the job, and before the first.
  LongJob(Dialogs& dialogs, std::string text, std::size_t steps, Milliseconds pause = kUsualPause);
  LongJob(const LongJob&) = delete;
  LongJob& operator=(const LongJob&) = delete;
  ~LongJob();

  /// One more of the steps is done. Here the job ends when the program is told to end.
  void step();

 private:
  Dialogs& dialogs_;
  Progress progress_;
  Milliseconds pause_;
  CoarseClock::time_point next_;
  bool shown_ = false;
};

}  // namespace zelkor
