#include <cstdio>
#include <optional>
#include <stdexcept>

#include "Benchmarks.h"
#include "cards/VoucherStaging.h"
#include "Sqlite.h"
#include "Stopwatch.h"
#include "vouchers/BatchBilling.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

void stageEvents(RunContext& run, long events) {
  for (long number = 1; number <= events; ++number) {
    StatementGroup group(run.dbZKData);
    stageNewAsset(group, run, {std::to_string(number), "101", "1234.56", "301", run.period()});
  }
  run.engine.flush();
}

/// Reads every staged row once.
double floorSeconds(const std::string& dataFile) {
  const BareFile file(dataFile);
  std::vector<double> rounds;
  for (int round = 0; round < kRounds; ++round) {
    rounds.push_back(secondsOf([&] {
      BareStatement rows(
          file,
          "SELECT doutbilldate,coutsign,coutbillsign,coutno_id,md,mc,ccode,cDefine2,coutid,i_id "
          "FROM fa_ZWVouchers ORDER BY coutid");
      while (rows.step()) {
        for (int column = 0; column < 10; ++column) rows.text(column);
      }
    }));
  }
  return best(rounds);
}

}  // namespace

double benchBatchBilling(long events) {
  const LargeAccountSet set(1);
  Session session(set);
  stageEvents(session.run(), events);
  std::vector<double> opening;
  std::vector<double> loading;
  for (int round = 0; round < kRounds; ++round) {
    std::optional<BatchBilling> billing;
    opening.push_back(secondsOf([&] { billing.emplace(session.run()); }));
    for (std::size_t row = 1; row < billing->selection().rows(); ++row) billing->setMergeNumber(row, "1");
    billing->markAll();
    loading.push_back(secondsOf([&] { billing->loadLines(); }));
    if (billing->lines().rows() != static_cast<std::size_t>(2 * events) + 1)
      throw std::runtime_error("lines are missing");
  }
  const double floor = floorSeconds(set.dataFile());
  const double both = best(opening) + best(loading);
  std::printf("batch billing     %7ld events  list %7.1f ms  lines of one merged set %7.1f ms  ratio %.2f\n",
              events, best(opening) * 1e3, best(loading) * 1e3, both / floor);
  return both;
}

}  // namespace zelkor::bench
