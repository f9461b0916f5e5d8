#include "base/LongJob.h"

#include <utility>

#include "base/EndSignals.h"

namespace zelkor {

LongJob::LongJob(Dialogs& dialogs, std::string text, std::size_t steps, Milliseconds pause)
    : dialogs_(dialogs),
      progress_{std::move(text), 0, steps},
      pause_(pause),
      next_(CoarseClock::now() + pause) {}

LongJob::~LongJob() {
  if (shown_) dialogs_.endProgress();
}

void LongJob::step() {
  ++progress_.done;
  goOnUnlessSignalled();
  if (CoarseClock::now() < next_) return;
  shown_ = true;
  dialogs_.showProgress(progress_);
  next_ = CoarseClock::now() + pause_;
}

}  // namespace zelkor
