#include <cstdio>
#include <cstdlib>
#include <exception>

#include "Benchmarks.h"

namespace {

int runAll(long largest) {
  using namespace zelkor::bench;
  const LargeAccountSet small(1000);
  const LargeAccountSet middle(largest / 10);
  const LargeAccountSet large(largest);
  benchStatements(small);
  benchMonthlyRun(small);
  const double runMiddle = benchMonthlyRun(middle);
  const double runLarge = benchMonthlyRun(large);
  std::printf("monthly run       cost per card at %ld against %ld: %.2f\n", large.cards(), middle.cards(),
              runLarge / runMiddle);
  const double saveSmall = benchSaveCard(small);
  const double saveLarge = benchSaveCard(large);
  std::printf("saving a card     cost at %ld cards against %ld: %.2f\n", large.cards(), small.cards(),
              saveLarge / saveSmall);
  return 0;
}

}  // namespace

/// Prints every measurement; the argument is the size of the largest account set.
int main(int argc, char** argv) {
  try {
    return runAll(argc > 1 ? std::atol(argv[1]) : 100000);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
