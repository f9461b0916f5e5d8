#include "base/RuntimeError.h"
#include "Benchmarks.h"
#include "closing/MonthEnd.h"
#include "MonthEndFloor.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

double closingSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  bool closed = false;
  const double seconds = secondsOf([&] {
    try {
      closeMonth(session.run(), {[](int) {}, [] {}});
    } catch (const EndProgram&) {
      closed = true;
    }
    session.run().engine.flush();
  });
  if (!closed) throw std::runtime_error("the month was not closed");
  return seconds;
}

double floorSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  return secondsOf([&] { monthEndFloor(set.dataFile()); });
}

}  // namespace

double benchMonthEnd(const LargeAccountSet& set) {
  std::vector<double> closings;
  std::vector<double> floors;
  for (int round = 0; round < 3; ++round) {
    floors.push_back(floorSeconds(set));
    closings.push_back(closingSeconds(set));
  }
  return printPerCard("month-end", set.cards(), closings, floors);
}

}  // namespace zelkor::bench
