#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "faults/FaultFixture.h"

namespace zelkor::test {

/// Two lists hold the same lines, in whatever order.
inline void expectSame(const std::string& what, Lines found, Lines told) {
  std::ranges::sort(found);
  std::ranges::sort(told);
  EXPECT_EQ(differenceOf(found, told), "")
      << what << ": " << found.size() << " found, " << told.size() << " told";
}

/// What the desks have told.
struct Told {
  Lines cards;   // fields of a card, without its first word
  Lines sheets;  // likewise
  Lines counters;
  Lines unsaved;
  long longest = 0;  // milliseconds

  void take(const Lines& lines) {
    for (const std::string& line : lines) {
      const std::string word = line.substr(0, line.find('|'));
      const std::string rest = line.substr(line.find('|') + 1);
      if (word == "card") cards.push_back(rest);
      if (word == "sheet") sheets.push_back(rest);
      if (word == "counter") counters.push_back(rest);
      if (word == "longest") longest = std::max(longest, std::stol(rest));
      if (word == "unsaved" || word.starts_with("box")) unsaved.push_back(line);
    }
  }
};

}  // namespace zelkor::test
