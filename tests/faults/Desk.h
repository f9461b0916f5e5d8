#pragma once

#include <chrono>
#include <map>
#include <string>

#include "cards/ClsBLLFACards.h"
#include "changes/ChangeSheets.h"
#include "faults/Workstation.h"

namespace zelkor::test {

/// The department whose cards a desk enters: a card number that two desks give is told apart by it.
std::string departmentOf(int desk);

/// What is entered for an asset; the numbers are left to the caller.
CardValues newCard(const std::string& department, const std::string& name, const std::string& value);

/// What a bookkeeper does at one of several desks. Everything that the program says it has saved is told, its
/// fields joined by "|":
/// - "card|<number>|<asset number>|<name>|<department>|<value>|<new type>", the value being that of no other
///   card;
/// - "sheet|<number>|<card number>|<reason>|<kind>", the reason being that of no other sheet;
/// - "unsaved|<text>" for what was refused.
class Desk {
 public:
  Desk(RunContext& context, int number, const Workstation::Tell& tell);

  /// Enters a card by the numbers that the screen gives; gives its number.
  std::string enterCard(NewCardType type);
  /// Changes the card by a sheet of that kind.
  void saveSheet(ChangeKind kind, const std::string& cardNum);
  void changeMethod(const std::string& cardNum);
  /// Looks at the list of cards, at what a sheet may be made for, and at a report.
  void readLists();
  /// Tells the longest time that one of these has taken: "longest|<milliseconds>".
  void tellLongest() const;

 private:
  template <typename Step>
  void timed(Step step);
  void load(ChangeSheets& sheets, const std::string& cardNum, ChangeSheet& sheet);
  static void fill(ChangeKind kind, ChangeSheet& sheet);
  std::string nextReason();

  RunContext& context_;
  int number_;
  Workstation::Tell tell_;
  ClsBLLFACards cards_;
  std::map<ChangeKind, ChangeSheets> sheets_;
  int entered_ = 0;
  int reasons_ = 0;
  std::chrono::steady_clock::duration longest_{};
};

}  // namespace zelkor::test
