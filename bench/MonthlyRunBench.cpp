#include "Benchmarks.h"
#include "depreciation/RunMonthDepr.h"
#include "MonthlyRunFloor.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

double runSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  return secondsOf([&] {
    RunMonthDepr(session.run(), {[] {}, [] {}});
    session.run().engine.flush();
  });
}

double floorSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  return secondsOf([&] { monthlyRunFloor(set.dataFile()); });
}

}  // namespace

double benchMonthlyRun(const LargeAccountSet& set) {
  std::vector<double> runs;
  std::vector<double> floors;
  const int rounds = set.cards() > 20000 ? 3 : 7;
  for (int round = 0; round < rounds; ++round) {
    floors.push_back(floorSeconds(set));
    runs.push_back(runSeconds(set));
  }
  return printPerCard("monthly run", set.cards(), runs, floors);
}

}  // namespace zelkor::bench
