#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "Benchmarks.h"
#include "cards/CardImport.h"
#include "cards/ClsBLLFACards.h"
#include "SaveCardFloor.h"
#include "Stopwatch.h"

namespace zelkor::bench {

namespace {

constexpr int kCards = 200;
constexpr int kFirst = 900000;
constexpr int kRounds = 7;
constexpr long kLastNumber = 99999;  // numbers of cards have five digits

/// Saves cards with numbers from `first` on; false when one was refused.
bool saveCards(ClsBLLFACards& store, int first) {
  for (int number = first; number < first + kCards; ++number) {
    CardValues card = sampleCard(std::to_string(number));
    if (!store.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary)) return false;
  }
  return true;
}

std::vector<double> secondsOfSaving(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  ClsBLLFACards store(session.run());
  store.setZkDataPath(set.dataFile());
  std::vector<double> rounds;
  for (int round = 0; round < kRounds; ++round) {
    bool saved = false;
    rounds.push_back(secondsOf([&] {
      saved = saveCards(store, kFirst + round * kCards);
      session.run().engine.flush();
    }));
    if (!saved) throw std::runtime_error("a card was not saved");
  }
  return rounds;
}

std::vector<double> secondsOfFloor(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  BareFile file(set.dataFile());
  file.forceCommits();
  SaveCardFloor floor(file);
  std::vector<double> rounds;
  for (int round = 0; round < kRounds; ++round) {
    rounds.push_back(secondsOf([&] {
      file.run("BEGIN IMMEDIATE");
      for (int card = 0; card < kCards; ++card) {
        const std::string number = std::to_string(kFirst + round * kCards + card);
        floor.saveAddition(number, "01" + number);
      }
      file.run("COMMIT");
    }));
  }
  return rounds;
}

/// A register of that many sample cards without numbers.
std::string sampleRegister(long cards) {
  std::string header;
  std::string row;
  CardValues card = sampleCard("");
  card[CardField::AssetNumber].clear();
  card[CardField::DepreciationSubject] = "410502";
  for (const CardFieldRow& field : cardFields()) {
    header += (header.empty() ? "" : ",") + std::string(field.label);
    row += (field.field == CardField::CardNumber ? "" : ",") + card[field.field];
  }
  std::string csv = header + "\n";
  for (long i = 0; i < cards; ++i) csv += row + "\n";
  return csv;
}

double secondsOfImport(const LargeAccountSet& original, const std::string& csv, long cards) {
  const LargeAccountSet set(original);
  Session session(set);
  std::ostringstream problems;
  ImportResult result;
  const double seconds = secondsOf([&] {
    result = importCards(session.run(), csv, 1, problems);
    session.run().engine.flush();
  });
  if (result.stored != cards) throw std::runtime_error("rows were refused: " + problems.str());
  return seconds;
}

double secondsOfImportFloor(const LargeAccountSet& original, long cards) {
  const LargeAccountSet set(original);
  BareFile file(set.dataFile());
  file.forceCommits();
  SaveCardFloor floor(file);
  return secondsOf([&] {
    file.run("BEGIN IMMEDIATE");
    for (long i = 0; i < cards; ++i) floor.saveOriginal(floor.nextCardNum(), floor.nextAssetNum());
    file.run("COMMIT");
  });
}

}  // namespace

double benchSaveCard(const LargeAccountSet& set) {
  const double perCard = best(secondsOfSaving(set)) * 1e6 / kCards;
  std::printf("saving a card     %7ld cards  %8.2f us/card", set.cards(), perCard);
  if (!set.onServer()) {
    const double floor = best(secondsOfFloor(set)) * 1e6 / kCards;
    std::printf("  floor %8.2f us/card  ratio %5.2f", floor, perCard / floor);
  }
  std::printf("\n");
  return perCard;
}

void benchCardImport(const LargeAccountSet& set, long wanted) {
  const long cards = std::min(wanted, kLastNumber - set.cards());
  if (cards < wanted)
    std::printf("import of cards   %7ld cards at most: their numbers have five digits\n", cards);
  const std::string csv = sampleRegister(cards);
  std::vector<double> rounds;
  std::vector<double> floors;
  for (int round = 0; round < 3; ++round) {
    floors.push_back(secondsOfImportFloor(set, cards));
    rounds.push_back(secondsOfImport(set, csv, cards));
  }
  printPerCard("import of cards", cards, rounds, floors);
}

}  // namespace zelkor::bench
