#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Currency.h"
#include "depreciation/DeprTable.h"
#include "home/BookReading.h"

namespace zelkor {

/// What a page about depreciation shows: tables, what should be known about them, and an amount for each
/// month.
struct DeprPage {
  struct Amount {
    std::string month;  // "2020.05"
    double amount = 0;
  };
  std::vector<std::string> remarks;
  std::vector<std::string> problems;  // why there are no tables
  std::vector<DeprTable> tables;
  std::vector<Amount> months;
};

/// What the month's run would book. Reads through connections of its own. Errors as openDatabaseForReading.
DeprPage previewPage(const BooksPlace& place);
/// What is still to come. Likewise.
DeprPage planPage(const BooksPlace& place, std::size_t months);

}  // namespace zelkor
