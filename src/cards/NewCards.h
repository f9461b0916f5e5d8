#pragma once

#include <map>
#include <optional>
#include <string>

#include "cards/CardRows.h"
#include "cards/CardValues.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// What new cards are written from beside their values: their keys, and what they name. Each card that is
/// written counts for the keys of the next one.
class NewCards {
 public:
  explicit NewCards(NewCardType type) : type_(type) {}

  /// Has the group read what the card needs. Stays where it is until the group has been run.
  void read(StatementGroup& group, const CardValues& card);
  /// The card ready to be written; the name in DepreciationMethod is replaced by the method's sID.
  CardEntry entry(CardValues& values, CardLayout layout, int month) const;
  /// Writes all rows of the card but those that are staged for the ledger.
  void write(StatementGroup& group, const CardEntry& card);

 private:
  NewCardKeys nextKeys();

  NewCardType type_;
  bool haveRead_ = false;
  std::optional<Value> lastCardID_;
  double lastOptID_ = 0;
  std::map<std::string, std::optional<std::string>> methods_;  // sID by name
  std::map<std::string, CardSubject> subjects_;                // by the card's text
};

}  // namespace zelkor
