#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "cards/CardLayout.h"
#include "cards/CardValues.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// How an asset came into the books: before the module's first period, or in the period of its card.
enum class NewCardType : int { Original = 1, AddedInPeriod = 2 };

/// Code and name of the subject; both empty when the chart does not hold it.
struct CardSubject {
  std::string code;
  std::string name;
};

/// Takes the depreciation subject from the card's text, or has it looked up with the group. `subject` stays
/// where it is until the group has been run.
void readSubject(StatementGroup& group, const std::string& text, CardSubject& subject);

/// A card ready to be written: its values, and what was made of them. Numbers go into the statements as they
/// are typed; a blank one breaks its statement. Lives, months and dates are converted, with error 13 for what
/// is none.
struct CardEntry {
  /// Splits the department.
  CardEntry(const CardValues& values, CardLayout layout, int month, CardSubject subject);

  const CardValues& values;
  CardLayout layout;
  int month;  // of the operating date
  std::string department;
  CardSubject subject;
  std::int32_t life;  // months
  DateTime entered;

  const std::string& operator[](CardField field) const { return values[field]; }
};

/// Identity of a card's first version.
struct NewCardKeys {
  std::string cardID;
  std::int32_t lOptID = 1;
  NewCardType type = NewCardType::Original;
};

void insertCard(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys);
/// The whole card as the share of its one department.
void insertDeptScale(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys);
void insertCardDetail(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys);
void insertDeprTransaction(StatementGroup& group, const CardEntry& card);
void insertDeprTransactionDetail(StatementGroup& group, const CardEntry& card);

/// Rewrites every version of the card in place.
void updateCardRows(StatementGroup& group, const CardEntry& card, std::string_view cardNum);
/// Rewrites the card's ledger row; its monthly values take the accumulated depreciation, not the original
/// value that a new card writes there.
void updateDeprTransaction(StatementGroup& group, const CardEntry& card, std::string_view cardNum);

}  // namespace zelkor
