#pragma once

#include <map>
#include <string>

#include "reports/ReportRun.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {

/// A company's books at the end of January 2020: forty cards of the sample register with the month's
/// depreciation, transfers, increases of value, a disposal, additions of two years, and amounts that round
/// badly. In force is May 2020.
class ReportTest : public AccountSetTest {
 protected:
  /// Fills the account set; without it the archives alone are there.
  void keepBooks();
  /// A report's captions and grid as text, or its box, or the error that it ends in.
  std::string report(const std::string& name);

  using Changes = std::map<std::string, Value>;
  /// A further version of the card, a copy of its newest but for these columns.
  void addVersion(const std::string& cardNum, const Changes& changes);

  ReportConditions conditions{2020};

 private:
  void importCards();
  void runJanuary();
  void changeCards();

  int lastCardID_ = 40;
};

}  // namespace zelkor::test
