#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/Database.h"

namespace zelkor {

/// The options that can be changed after an account set has been set up, as the options screen holds them.
struct AccountOptions {
  bool reconcilesWithLedger = false;
  bool closesUnreconciled = false;  // kept only where the account set reconciles, like the two subjects
  std::string assetsSubject;        // "code,name" or a code
  std::string depreciationSubject;
  bool vouchersAtOnce = false;
  bool vouchersBeforeClosing = false;
  std::string defaultAssetsSubject;        // kept only when it is neither empty nor a lone comma
  std::string defaultDepreciationSubject;  // likewise
  // Without a value the rows of a list stay as they are: what they hold is not in the list.
  std::optional<int> methodNumber;  // place among the depreciation methods, from 1
  bool depreciatesRestInLastMonth = false;
  std::optional<std::string> allocationCycle;  // months
  std::string yearsToDelete;
  std::string categoryCodingRule;
  std::optional<int>
      cardNumbering;  // 0: by hand; otherwise the place in the list of automatic numbers, from 1
  std::string cardSequenceLength;
  bool addsInSuccession = false;
};

/// Writes the options, each row by a statement of its own.
void storeOptions(Database& data, const AccountOptions& options);

/// Subject rows as their fields show them: the code, a comma, the name; empty when the row is Null or
/// missing. An empty code leaves a lone comma.
std::vector<std::string> subjectFieldTexts(Database& data, std::span<const std::string_view> rows);

/// The month in a date row, "2004.04": the first four characters, a point, the sixth and seventh; empty when
/// there is no such row. A month without a leading zero brings its hyphen along.
std::string monthOfDateRow(Database& data, std::string_view row);

}  // namespace zelkor
