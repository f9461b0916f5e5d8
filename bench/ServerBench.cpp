#include <cstdio>
#include <vector>

#include "Benchmarks.h"
#include "PostgreSql.h"
#include "ServerDatabase.h"
#include "ServerMonthlyRunFloor.h"
#include "Stopwatch.h"
#include "TimedJobs.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

double floorSeconds(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  return secondsOf([&] { serverMonthlyRunFloor(set.conninfo()); });
}

void compareRuns(const char* what, const LargeAccountSet& set) {
  std::vector<double> runs;
  std::vector<double> floors;
  for (int round = 0; round < kRounds; ++round) {
    floors.push_back(floorSeconds(set));
    runs.push_back(secondsOfMonthlyRun(set));
  }
  printPerCard(what, set.cards(), runs, floors);
}

void forceToDisk(const std::string& server, bool force) {
  BareServer link(server, "public");
  link.run(std::string("ALTER SYSTEM SET fsync = ") + (force ? "on" : "off"));
  link.run("SELECT pg_reload_conf()");
}

}  // namespace

void benchServerRun(const LargeAccountSet& set) {
  compareRuns("run, no fsync", set);
  forceToDisk(benchServer(), true);
  compareRuns("run, fsync", set);
  forceToDisk(benchServer(), false);
}

double benchServerMonthEnd(const LargeAccountSet& set) {
  const double perCard = secondsOfMonthEnd(set) * 1e6 / static_cast<double>(set.cards());
  std::printf("month-end         %7ld cards  %8.2f us/card\n", set.cards(), perCard);
  return perCard;
}

}  // namespace zelkor::bench
