#include "home/BookReading.h"

#include <sstream>

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
  return reading;
}

}  // namespace zelkor
