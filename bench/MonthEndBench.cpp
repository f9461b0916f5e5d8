#include "Benchmarks.h"
#include "MonthEndFloor.h"
#include "Stopwatch.h"
#include "TimedJobs.h"

namespace zelkor::bench {
namespace {

double floorSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  BareFile file(set.dataFile());
  file.forceCommits();
  return secondsOf([&] { monthEndFloor(file); });
}

}  // namespace

double benchMonthEnd(const LargeAccountSet& set) {
  std::vector<double> closings;
  std::vector<double> floors;
  for (int round = 0; round < 3; ++round) {
    floors.push_back(floorSeconds(set));
    closings.push_back(secondsOfMonthEnd(set));
  }
  return printPerCard("month-end", set.cards(), closings, floors);
}

}  // namespace zelkor::bench
