#include <cstdio>
#include <stdexcept>

#include "Benchmarks.h"
#include "cards/ClsBLLFACards.h"
#include "Stopwatch.h"

namespace zelkor::bench {

namespace {

constexpr int kCards = 200;

/// Saves cards with numbers from `first` on; false when one was refused.
bool saveCards(ClsBLLFACards& store, int first) {
  for (int number = first; number < first + kCards; ++number) {
    CardValues card = sampleCard(std::to_string(number));
    if (!store.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary)) return false;
  }
  return true;
}

}  // namespace

double benchSaveCard(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  ClsBLLFACards store(session.run());
  store.setZkDataPath(set.dataFile());
  std::vector<double> rounds;
  for (int first = 900000; first < 900000 + 7 * kCards; first += kCards) {
    bool saved = false;
    rounds.push_back(secondsOf([&] {
      saved = saveCards(store, first);
      session.run().engine.flush();
    }));
    if (!saved) throw std::runtime_error("a card was not saved");
  }
  const double perCard = best(rounds) * 1e6 / kCards;
  std::printf("saving a card     %7ld cards  %8.2f us/card\n", set.cards(), perCard);
  return perCard;
}

}  // namespace zelkor::bench
