#pragma once

#include <string>

#include "home/AccountHeader.h"
#include "home/BookFigures.h"
#include "home/MonthState.h"

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
  AccountHeader header;
  MonthFacts facts;
  MonthState month;
  BookFigures figures;
};

/// Reads all that the workbench shows, through connections of its own, which are closed again. Errors as
/// DbEngine::OpenDatabase.
BookReading readBooks(const BooksPlace& place);

}  // namespace zelkor
