#include <cstdio>

#include "audit/BookCheck.h"
#include "Benchmarks.h"
#include "depreciation/RunMonthDepr.h"
#include "Sqlite.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 3;

void printCheck(const char* where, const LargeAccountSet& set) {
  const BooksToCheck books{set.dataFile(), set.systemFile(), *DateTime::fromParts(2020, 1, 31)};
  std::vector<double> rounds;
  std::size_t found = 0;
  for (int round = 0; round < kRounds; ++round)
    rounds.push_back(secondsOf([&] { found = checkBooks(books).findings.size(); }));
  std::printf("check             %7ld cards  %8.2f s  %zu findings  %s\n", set.cards(), best(rounds), found,
              where);
}

}  // namespace

void benchBookCheck(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  // All cards as the first one was entered: sound books, whose rules find nothing.
  BareFile(set.dataFile()).run("UPDATE fa_Cards SET dblValue=100000");
  {
    Session session(set);
    RunMonthDepr(session.run(), {[] {}, [] {}});
    session.run().engine.flush();
  }
  printCheck("in a file", set);
  if (const std::string server = benchServer(); !server.empty())
    printCheck("on a server", LargeAccountSet(set, server));
}

}  // namespace zelkor::bench
