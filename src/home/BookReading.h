#pragma once

#include <string>

#include "depreciation/BookFigures.h"
#include "home/AccountTitle.h"
#include "home/MonthState.h"
#include "home/RecentWork.h"

namespace zelkor {

/// Where the data files of an account set lie, and for which day it is looked at.
struct BooksPlace {
  std::string dataFile;
  std::string systemFile;
  std::string account;
  DateTime date;

  bool operator==(const BooksPlace&) const = default;
};

struct BookReading {
  AccountTitle header;
  MonthFacts facts;
  MonthState month;
  std::optional<BookFigures> figures;  // none in a first reading
  RecentWork recent;                   // likewise
};

/// Takes in the last check of the month, and judges the month again.
void takeCheck(BookReading& reading, std::optional<KeptCheck> check);

/// Reads the steps alone, without what takes time: whether a run would give other figures now, and what the
/// assets come to. Through connections of its own, which are closed again. Errors as openDatabaseForReading.
BookReading readSteps(const BooksPlace& place);
/// The same with all that the workbench shows.
BookReading readBooks(const BooksPlace& place);

}  // namespace zelkor
