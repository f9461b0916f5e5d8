#pragma once

#include <string>

namespace zelkor::test {

/// An asset as it is entered. Amounts stand as they are typed.
struct YearAsset {
  std::string number;
  std::string assetNumber;
  std::string name;
  std::string category;
  std::string department;
  std::string status;
  std::string life;  // months
  std::string method;
  std::string startDate;
  std::string monthsUsed;
  std::string value;
  std::string residualRate;
  std::string residual;
  std::string accumulated;
  std::string subject;
};

/// What a card by workload has besides.
struct YearWorkload {
  std::string perUnit;
  std::string total;
  std::string tax;
};

/// An asset of the company by its card number.
YearAsset asset(const std::string& number);

}  // namespace zelkor::test
