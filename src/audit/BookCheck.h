#pragma once

#include <optional>
#include <string>
#include <vector>

#include "audit/CheckRule.h"
#include "base/Currency.h"
#include "base/DateTime.h"

namespace zelkor {

class ReadBooks;

/// One place of the books where a rule does not hold.
struct Finding {
  const CheckRule* rule = nullptr;
  std::string card = {};   // empty, as the rest, where it is none
  std::string place = {};  // the row: a version, a voucher, a table
  int period = 0;          // the month, 0 where it is none
  std::optional<Currency> amount = {};
  std::string detail = {};
};

struct CheckResult {
  std::vector<Finding> findings;   // in the order of the rules
  std::vector<std::string> notes;  // what was not checked, and why
  /// Whether something is to be put right: notes of what the system itself leaves behind do not count.
  bool isSound() const;
};

/// The books that are checked, as of the month of a day.
struct BooksToCheck {
  std::string dataFile;
  std::string systemFile;  // may be empty
  DateTime date;
};

/// Asks all rules of a data file, told as `name`, as of the month of that day, but not its engine.
CheckResult checkData(ReadBooks& books, const std::string& name, const DateTime& date);

/// Asks all rules of one state of the books. Reads on connections of its own and writes nothing, so that the
/// files may be read-only and the caller's thread any. Errors: those of openDataFileForReading.
CheckResult checkBooks(const BooksToCheck& books);

}  // namespace zelkor
