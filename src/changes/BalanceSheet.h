#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Dialogs.h"
#include "changes/ClsBLLBalance.h"

namespace zelkor {

/// The sheet of the kind 折旧方法调整 as FrmFABalance shows it, text box by text box.
struct BalanceSheet {
  std::string number;           // Text1
  std::string date;             // Text2, "yyyy-m-d"
  std::string cardNum;          // Text3
  std::string assetNum;         // Text4
  std::string startDate;        // Text5
  std::string assetName;        // Text6
  std::string style;            // Text7
  std::string methodBefore;     // Text8, a name
  std::string methodAfter;      // Text9, a name
  std::string reason;           // Text10
  std::string operatorName;     // Text11
  std::string methodBeforeID;   // txtBFID
  std::string methodAfterID;    // txtAFID
  std::string operationNumber;  // txtTemp
};

inline constexpr const char* kBalanceCaption = "折旧方法调整";

/// An empty sheet with the next numbers, the operating date and the operator.
BalanceSheet newBalanceSheet(ClsBLLBalance& balance, DateTime operatingDate, const std::string& operatorName);

/// Fills the sheet with the newest version of the card as the card picker gives it; false when the card is
/// not in force on the sheet's date.
bool loadBalanceCard(Database& database, std::string_view cardNum, BalanceSheet& sheet);

/// The message that refuses the sheet; nothing when it may be saved.
std::optional<MessageBox> balanceRefusal(const BalanceSheet& sheet);

/// What the operator must agree to before the save; nothing for most sheets.
std::optional<MessageBox> balanceQuestion(const BalanceSheet& sheet);

/// How a save of the sheet ended.
struct BalanceSaved {
  bool saved = false;
  MessageBox box;  // what the screen shows
};

/// Saves the sheet, which has passed balanceRefusal and balanceQuestion.
BalanceSaved saveBalance(ClsBLLBalance& balance, const BalanceSheet& sheet);

}  // namespace zelkor
