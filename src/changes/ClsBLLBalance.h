#pragma once

#include <string>

#include "startup/BusinessClass.h"
#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// What AddCards stores, as the screen shows it.
struct MethodChange {
  std::string sheetNumber;
  std::string date;
  std::string cardNum;
  std::string methodBefore;  // sID
  std::string methodAfter;   // sID
  std::string reason;
  std::string operatorName;
  std::string operationNumber;
};

/// Whether the method that a card leaves is the one by workload.
enum class MethodLeft { Workload, Other };

/// The change of an asset's depreciation method. What fails is silent: a closed recordset or false, and what
/// was written before stays.
class ClsBLLBalance : public BusinessClass {
 public:
  /// The month of the clock goes into the new version.
  explicit ClsBLLBalance(const RunContext& context)
      : BusinessClass(context.engine, "ClsBLLBalance."), clock_(context.clock) {}

  /// Highest sheet number and highest operation number, Null without sheets.
  Recordset rstGetCards();
  /// Adds a version of the card with the new method and the sheet, without a transaction.
  bool AddCards(const MethodChange& change, MethodLeft left);

 private:
  void addVersion(StatementGroup& group, const MethodChange& change, MethodLeft left);

  const Clock& clock_;
};

}  // namespace zelkor
