#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "depreciation/Books.h"

namespace zelkor {

/// A card by the newest of its versions that count on the day.
struct TalliedCard {
  std::string department;
  std::string category;
  double value = 0;
  bool inUse = false;
};

/// How many allocation rows there are of a department, category and subject, and what they come to.
struct Allocation {
  long cards = 0;
  double amount = 0;
};
using Allocations = std::map<std::tuple<std::string, std::string, std::string>, Allocation>;

/// What one walk over all versions of all cards tells of an account set on a day. Versions are told apart by
/// the number in sCardID. A disposal, which bears the date of the machine, also counts from the month on for
/// which it was staged.
struct CardTally {
  static constexpr std::size_t kMostNewest = 8;

  long versions = 0;
  long cards = 0;  // card numbers
  long inUse = 0;
  long disposed = 0;
  long disposedInMonth = 0;
  long enteredInMonth = 0;
  std::optional<DateTime> lastEntered;
  long withoutSubject = 0;  // in use, and depreciated to no subject
  std::vector<std::string> workloadCards;
  long inService = 0;  // that the month's run takes

  // Of a whole tally only:
  std::unordered_map<std::string, TalliedCard> byNumber;
  Allocations due;                  // what the run would allocate now,
  long notComputable = 0;           // and the cards with which it would end in an error
  std::vector<std::string> newest;  // numbers of the versions that came last
};

/// The numbers alone are there several times as soon.
enum class TallyDepth : std::uint8_t { Numbers, Whole };

CardTally tallyCards(Books& books, TallyDepth depth);

}  // namespace zelkor
