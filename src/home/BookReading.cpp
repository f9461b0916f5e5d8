#include "home/BookReading.h"

#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/accountset/ReadingDatabase.h"

namespace zelkor {

namespace {

/// Opened for one reading.
class OpenBooks {
 public:
  explicit OpenBooks(const BooksPlace& place)
      : books_{openDatabaseForReading(place.dataFile), openDatabaseForReading(place.systemFile),
               place.account, place.date, place.dataFile} {}

  BookReading read(TallyDepth depth) {
    BookReading reading;
    reading.header = accountTitle(books_.system, books_.account);
    const CardTally cards = tallyCards(books_, depth);
    reading.facts = readMonthFacts(books_, cards);
    if (depth == TallyDepth::Whole) addFigures(cards, reading);
    reading.month = monthState(reading.facts);
    return reading;
  }

 private:
  void addFigures(const CardTally& cards, BookReading& reading) {
    compareWithRun(books_, cards, reading.facts);
    reading.figures = readFigures(books_, cards);
    reading.recent = readRecentWork(books_, cards.newest);
    // The ledger keeps each card's amount with two decimals, the staged entries have the sum of all four.
    if (reading.facts.depreciationIsStaged)
      reading.figures->depreciation = Val(Format(reading.facts.depreciation, "0.00"));
  }

  Books books_;
};

}  // namespace

void takeCheck(BookReading& reading, std::optional<KeptCheck> check) {
  reading.facts.check = std::move(check);
  reading.month = monthState(reading.facts);
}

BookReading readSteps(const BooksPlace& place) {
  return OpenBooks(place).read(TallyDepth::Numbers);
}

BookReading readBooks(const BooksPlace& place) {
  return OpenBooks(place).read(TallyDepth::Whole);
}

}  // namespace zelkor
