#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cards/CardRows.h"
#include "cards/CardValues.h"
#include "startup/BusinessClass.h"
#include "startup/RunContext.h"
#include "store/engine/Foresight.h"

namespace zelkor {

/// A step through all versions of all cards, in the order of their sCardID.
enum class CardMove : int { First = 1, Previous = 2, Next = 3, Last = 4 };

/// The card store: numbers, enters, rewrites, deletes and walks cards. What fails is silent; the methods then
/// return an empty text, 0, false or a closed recordset, and what was written before stays.
class ClsBLLFACards : public BusinessClass {
 public:
  /// Operating date, operator and account set of `context` go into the rows staged for the ledger. The errors
  /// bear the name of the category class.
  explicit ClsBLLFACards(const RunContext& context)
      : BusinessClass(context.engine, "ClsBLLAssentTypes."), context_(context) {}

  using BusinessClass::ExecuteQuery;

  /// Has what a new card of the category shows read together, where each would be a wait, until the result
  /// goes.
  [[nodiscard]] Foresight foreseeNewCard(std::string_view category);
  /// Likewise what goes with a version of a card.
  [[nodiscard]] Foresight foreseeVersion(std::string_view cardID);
  [[nodiscard]] Foresight foreseeNames(const Recordset& version);

  /// Next card number, five digits wide; `length` becomes 5 whatever the parameter says.
  std::string GetNewCardNum(std::int32_t& length);
  /// Next asset number of the category; empty when numbers are given by hand.
  std::string GetNewAssetNum(std::string_view typeCode);
  /// Sequence part of the next asset number within the category.
  std::string GetNewAssetNum1(std::string_view typeCode);
  std::string GetDeprMethodName(std::string_view methodID);

  /// Rewrites all versions of the card and its ledger row in place. DepreciationMethod holds the sID.
  bool UpdateCard(const CardValues& values, int month, std::string_view cardNum, CardLayout layout);
  /// Enters a card with its first version; the name in DepreciationMethod is replaced by the method's sID.
  bool SaveNewCard(CardValues& values, int month, NewCardType type, CardLayout layout);

  /// Accumulated depreciation with which the card was entered.
  double GetDeprTotal(std::string_view cardNum);
  /// Depreciation subject of the card as "code,name".
  std::string GetDeprSubjectName(std::string_view cardNum);
  std::string GetDeptName(std::string_view code);
  /// Each department's name.
  std::vector<std::string> GetDeptNames(std::span<const std::string> codes);
  std::string GetOrgAddName(std::string_view originID);
  std::string GetStatusName(std::string_view statusID);

  /// sCardID that the step leads to from `currentID`, itself at either end; empty without cards.
  /// `methodID` becomes the depreciation method of the version reached.
  std::string GetAssetCard(std::string_view currentID, CardMove move, std::string& methodID);
  /// Newest version of the card.
  std::string GetCardID(std::string_view cardNum);
  /// Deletes the card's ledger row, its versions and its staged vouchers, and closes the file. The rows by
  /// department stay.
  bool DeleteCard(std::string_view cardNum);
  /// The version with the name of its category.
  Recordset GetCard(std::string_view cardID);

 private:
  const RunContext& context_;
};

}  // namespace zelkor
