#pragma once

#include <string>

#include "base/DateTime.h"
#include "store/engine/Database.h"

namespace zelkor {

/// An account set while it is looked at, for a day of the month in question.
struct Books {
  Database data;
  Database system;
  std::string account;
  DateTime date;
  std::string dataFile;

  int year() const { return date.year(); }
  int month() const { return date.month(); }
  DateTime firstOfMonth() const { return *DateTime::fromParts(year(), month(), 1); }
};

}  // namespace zelkor
