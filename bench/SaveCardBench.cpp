#include <cstdio>

#include "Benchmarks.h"
#include "cards/ClsBLLFACards.h"
#include "Stopwatch.h"

namespace zelkor::bench {

double benchSaveCard(const LargeAccountSet& original) {
  constexpr int kCards = 500;
  const LargeAccountSet set(original);
  Session session(set);
  ClsBLLFACards store(session.run());
  store.setZkDataPath(set.dataFile());
  int saved = 0;
  const double seconds = secondsOf([&] {
    for (int i = 0; i < kCards; ++i) {
      CardValues card = sampleCard(std::to_string(900000 + i));
      saved += store.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary);
    }
    session.run().engine.flush();
  });
  const double perCard = seconds * 1e6 / kCards;
  std::printf("saving a card     %7ld cards  %8.2f us/card%s\n", set.cards(), perCard,
              saved == kCards ? "" : "  (not all were saved)");
  return perCard;
}

}  // namespace zelkor::bench
