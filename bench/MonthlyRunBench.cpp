#include "Benchmarks.h"
#include "MonthlyRunFloor.h"
#include "Stopwatch.h"
#include "TimedJobs.h"

namespace zelkor::bench {
namespace {

double floorSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  BareFile file(set.dataFile());
  file.forceCommits();
  return secondsOf([&] { monthlyRunFloor(file); });
}

}  // namespace

double benchMonthlyRun(const LargeAccountSet& set) {
  std::vector<double> runs;
  std::vector<double> floors;
  const int rounds = set.cards() > 20000 ? 3 : 7;
  for (int round = 0; round < rounds; ++round) {
    floors.push_back(floorSeconds(set));
    runs.push_back(secondsOfMonthlyRun(set));
  }
  return printPerCard("monthly run", set.cards(), runs, floors);
}

}  // namespace zelkor::bench
