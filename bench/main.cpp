#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Benchmarks.h"

namespace zelkor::bench {
namespace {

void printGrowth(const char* what, const LargeAccountSet& large, double largeCost,
                 const LargeAccountSet& small, double smallCost) {
  std::printf("%s cost at %ld cards against %ld: %.2f\n", what, large.cards(), small.cards(),
              largeCost / smallCost);
}

void measureServer(long largest) {
  const std::string server = benchServer();
  if (server.empty()) throw std::runtime_error("no server: run it by tests/support/with-server");
  benchServerRun(LargeAccountSet(LargeAccountSet(largest / 10), server));
  const LargeAccountSet small(LargeAccountSet(1000), server);
  const LargeAccountSet large(LargeAccountSet(largest), server);
  benchServerStatements(small);
  printGrowth("saving a card    ", large, benchSaveCard(large), small, benchSaveCard(small));
  benchSaveSheets(small, large);
  printGrowth("month-end        ", large, benchServerMonthEnd(large), small, benchServerMonthEnd(small));
}

void measure(std::string_view what, long largest) {
  if (what == "server") return measureServer(largest);
  if (what == "scans") return benchServerScans(LargeAccountSet(LargeAccountSet(largest), benchServer()));
  if (what == "wire") return benchWire(LargeAccountSet(LargeAccountSet(largest), benchServer()));
  if (what == "desk") return benchDesk(LargeAccountSet(LargeAccountSet(largest), benchServer()));
  if (what == "import") return benchImport();
  const LargeAccountSet small(1000);
  const LargeAccountSet large(largest);
  const bool all = what == "all";
  if (all || what == "statements") benchStatements(small);
  if (all || what == "totals") benchTotals(large);
  if (all || what == "run") {
    const LargeAccountSet middle(largest / 10);
    benchMonthlyRun(small);
    const double middleCost = benchMonthlyRun(middle);
    printGrowth("monthly run      ", large, benchMonthlyRun(large), middle, middleCost);
  }
  if (all || what == "plan") {
    benchPlan(large);
    if (const std::string server = benchServer(); !server.empty()) benchPlan(LargeAccountSet(large, server));
  }
  if (all || what == "monthend") {
    const double smallCost = benchMonthEnd(small);
    printGrowth("month-end        ", large, benchMonthEnd(large), small, smallCost);
  }
  if (all || what == "save") {
    const double smallCost = benchSaveCard(small);
    printGrowth("saving a card    ", large, benchSaveCard(large), small, smallCost);
  }
  if (all || what == "register") benchCardImport(small, largest);
  if (all || what == "sheet") benchSaveSheets(small, large);
  if (all || what == "billing") benchBatchBilling(largest / 10);
  if (all || what == "reports") benchReports(large);
  if (all || what == "exports") benchExports(large);
  if (all || what == "check") benchBookCheck(large);
  if (all || what == "backup") benchBackup(large);
}

}  // namespace
}  // namespace zelkor::bench

/// zelkor_bench
/// [all|statements|run|plan|monthend|save|register|sheet|billing|reports|exports|check|backup|server|wire|
/// desk|scans|import] [cards of the largest account set]
int main(int argc, char** argv) {
  try {
    zelkor::bench::measure(argc > 1 ? argv[1] : "all", argc > 2 ? std::atol(argv[2]) : 100000);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
