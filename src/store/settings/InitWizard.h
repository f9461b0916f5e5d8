#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The account set's header in the system file.
struct AccountHeader {
  std::string name;
  std::string unit;  // the company
  std::string currency;
  std::string manager;
  Value year;  // in which the suite was started; Null where the system file does not say
  Value month;
};

/// Error 3021 when the system file has no such account set.
AccountHeader readAccountHeader(Database& system, std::string_view accountId);

/// What a user agrees to before an account set is set up, one line below the other.
std::string initTerms(std::string_view accountId, const AccountHeader& account);

/// Months in which the account set can start, as "2020.05": from the later of its own first month and the
/// month of the operating date to the end of its year. Error 94 where the header has no year or month.
std::vector<std::string> startMonths(const AccountHeader& account, int operatingMonth);

/// The depreciation methods, in the order in which they are numbered.
inline constexpr const char* kDepreciationMethods = "SELECT * FROM fa_Depreciations order by sid";
/// Names of the depreciation methods, in the order in which they are numbered.
std::vector<std::string> depreciationMethodNames(Database& data);

/// What has been chosen when the wizard is finished.
struct InitChoices {
  std::string startMonth;          // as startMonths gives it
  std::string categoryCodingRule;  // four digits
  int cardNumbering = 0;           // 0: by hand; otherwise the place in the list of automatic numbers, from 1
  std::string cardSequenceLength;
  bool depreciates = true;
  int methodNumber = 0;  // place among the depreciation methods, from 1
  bool depreciatesRestInLastMonth = false;
  std::string allocationCycle;  // months
  bool reconcilesWithLedger = true;
  bool closesUnreconciled = false;
  std::string assetsSubject;  // "code,name" or a code
  std::string depreciationSubject;
};

/// Writes the choices to the parameters, after which the account set counts as initialised. Each row is a
/// statement of its own: what fails leaves the rows before it written.
void storeInitChoices(Database& data, const InitChoices& choices);

}  // namespace zelkor
