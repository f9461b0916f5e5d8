#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>

#include "base/RuntimeError.h"
#include "Benchmarks.h"
#include "closing/MonthEnd.h"
#include "DelayingProxy.h"
#include "depreciation/RunMonthDepr.h"
#include "ServerDatabase.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

struct Job {
  const char* name;
  std::function<void(RunContext&)> work;
};

void closeAndEnd(RunContext& run) {
  try {
    closeMonth(run, {[](int) {}, [](const auto&) {}});
  } catch (const EndProgram&) {
    return;
  }
  throw std::runtime_error("the month was not closed");
}

/// The file of the socket on which the server listens.
std::string socketOf(const std::string& server) {
  const std::size_t begin = server.find("host=") + 5;
  return server.substr(begin, server.find(' ', begin) - begin) + "/.s.PGSQL.5432";
}

void measure(const LargeAccountSet& original, const Job& job, std::chrono::microseconds roundTrip) {
  LargeAccountSet set(original);
  const DelayingProxy wire(socketOf(benchServer()), roundTrip / 2);
  if (roundTrip.count() > 0) set.reachBy(wire.host());
  Session session(set);
  const std::uint64_t before = session.run().dbZKData.waits();
  const double seconds = secondsOf([&] {
    job.work(session.run());
    session.run().engine.flush();
  });
  const auto waits = static_cast<double>(session.run().dbZKData.waits() - before);
  std::printf("%-16s %7ld cards at %4.1f ms %8.2f s, %7.0f waits, %7.4f a card\n", job.name, set.cards(),
              static_cast<double>(roundTrip.count()) / 1000, seconds, waits,
              waits / static_cast<double>(set.cards()));
}

}  // namespace

void benchWire(const LargeAccountSet& set) {
  const Job jobs[] = {{"monthly run",
                       [](RunContext& run) {
                         RunMonthDepr(run, {[] {}, [] {}});
                       }},
                      {"month-end", closeAndEnd}};
  for (const Job& job : jobs)
    for (const int roundTrip : {0, 1000, 5000, 20000})
      measure(set, job, std::chrono::microseconds(roundTrip));
}

}  // namespace zelkor::bench
