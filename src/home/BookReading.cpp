#include "home/BookReading.h"

#include <sstream>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

BookReading readBooks(const BooksPlace& place) {
  std::ostringstream unsaid;  // that older books can be renewed is told in the list of account sets
  DbEngine engine(unsaid);
  Books books{engine.OpenDatabase(place.dataFile), engine.OpenDatabase(place.systemFile), place.account,
              place.date};
  BookReading reading;
  reading.header = accountHeader(books.system, place.account);
  const CardTally cards = tallyCards(books);
  reading.facts = readMonthFacts(books, cards);
  reading.month = monthState(reading.facts);
  reading.figures = readFigures(books, cards);
  // The ledger keeps each card's amount with two decimals, the staged entries have the sum of all four.
  if (reading.facts.depreciationIsStaged)
    reading.figures.depreciation = Val(Format(reading.facts.depreciation, "0.00"));
  return reading;
}

}  // namespace zelkor
