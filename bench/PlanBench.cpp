#include <cstdio>

#include "Benchmarks.h"
#include "depreciation/DeprPlan.h"
#include "depreciation/RunMonthDepr.h"
#include "depreciation/RunPreview.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 3;
constexpr std::size_t kMonths = 60;

template <typename Work>
void print(const char* what, const LargeAccountSet& set, Work work) {
  std::vector<double> seconds;
  for (int round = 0; round < kRounds; ++round) seconds.push_back(secondsOf(work));
  std::printf("%-26s %7ld cards%s  %6.2f s\n", what, set.cards(), set.onServer() ? " on a server" : "",
              best(seconds));
}

}  // namespace

void benchPlan(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  RunContext& run = session.run();
  RunMonthDepr(run, {[] {}, [] {}});
  run.engine.flush();
  run.gdOpDate = *DateTime::fromParts(2020, 2, 29);
  print("preview of a month", set, [&] { previewMonthDepr(run.dbZKData, run.gdOpDate); });
  print("plan of 60 months", set, [&] { planDepr(run.dbZKData, run.gdOpDate, kMonths); });
  run.dbZKData.Execute("update fa_Cards set sDeprMethodID='5'");
  run.engine.flush();
  print("the same by years' digits", set, [&] { planDepr(run.dbZKData, run.gdOpDate, kMonths); });
}

}  // namespace zelkor::bench
