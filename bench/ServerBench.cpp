#include <cstdio>
#include <stdexcept>
#include <vector>

#include "base/RuntimeError.h"
#include "Benchmarks.h"
#include "closing/MonthEnd.h"
#include "depreciation/RunMonthDepr.h"
#include "PostgreSql.h"
#include "ServerDatabase.h"
#include "ServerMonthlyRunFloor.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

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
  return secondsOf([&] { serverMonthlyRunFloor(set.conninfo()); });
}

void compareRuns(const char* what, const LargeAccountSet& set) {
  std::vector<double> runs;
  std::vector<double> floors;
  for (int round = 0; round < kRounds; ++round) {
    floors.push_back(floorSeconds(set));
    runs.push_back(runSeconds(set));
  }
  printPerCard(what, set.cards(), runs, floors);
}

void forceToDisk(const std::string& server, bool force) {
  BareServer link(server, "public");
  link.run(std::string("ALTER SYSTEM SET fsync = ") + (force ? "on" : "off"));
  link.run("SELECT pg_reload_conf()");
}

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

}  // namespace

void benchServerRun(const LargeAccountSet& set) {
  compareRuns("run, no fsync", set);
  forceToDisk(benchServer(), true);
  compareRuns("run, fsync", set);
  forceToDisk(benchServer(), false);
}

double benchServerMonthEnd(const LargeAccountSet& set) {
  const double perCard = closingSeconds(set) * 1e6 / static_cast<double>(set.cards());
  std::printf("month-end         %7ld cards  %8.2f us/card\n", set.cards(), perCard);
  return perCard;
}

}  // namespace zelkor::bench
