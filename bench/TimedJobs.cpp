#include "TimedJobs.h"

#include <stdexcept>

#include "base/RuntimeError.h"
#include "closing/MonthEnd.h"
#include "depreciation/RunMonthDepr.h"
#include "Stopwatch.h"

namespace zelkor::bench {

double secondsOfMonthlyRun(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  return secondsOf([&] {
    RunMonthDepr(session.run(), {[] {}, [] {}});
    session.run().engine.flush();
  });
}

double secondsOfMonthEnd(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  bool closed = false;
  const double seconds = secondsOf([&] {
    try {
      closeMonth(session.run(), {[](int) {}, [](const auto&) {}});
    } catch (const EndProgram&) {
      closed = true;
    }
    session.run().engine.flush();
  });
  if (!closed) throw std::runtime_error("the month was not closed");
  return seconds;
}

}  // namespace zelkor::bench
