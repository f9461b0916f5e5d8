#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "cards/CardValues.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// Digits of card numbers, and of the running part of asset numbers.
inline constexpr std::int32_t kSequenceLength = 5;

/// The number that follows `text`, filled up with zeros to `length`; 1 follows what is no number.
std::string nextInSequence(const std::string& text, std::int32_t length);

/// Why the number of an asset may not be left blank in some account sets.
inline constexpr const char* kNumberedByHand = "不能为空：本账套的固定资产编号由手工输入";

/// What tells whether numbers of assets are given by hand, and what its row says.
inline constexpr const char* kHowAssetsAreNumbered =
    "Select * From AccInformation Where cName='iCardNumType' And cSysID='FA'";
bool areNumberedByHand(const Recordset& parameter);
/// The category of a card, with what it gives its cards.
std::string cardCategoryQuery(std::string_view category);
/// The last asset of a category in the order of text, and the running part of the number behind its own.
std::string lastAssetOf(std::string_view category);
std::string assetSequenceBehind(std::string last, std::string_view category, std::int32_t length);

/// The highest numbers of cards and assets in the order of text, from which the next ones are drawn. A card
/// that is noted counts as one that is there.
class CardSequences {
 public:
  /// Has the group read all that a card's numbers are drawn from. Stays where it is until the group has been
  /// run.
  void read(StatementGroup& group, const CardValues& card);

  std::string nextCardNumber() const;
  /// Empty where numbers of assets are given by hand.
  std::string nextAssetNumber(const std::string& category) const;
  /// Whether the number comes after those of all cards, so that none can have it.
  bool isBehindAll(std::string_view cardNumber) const;
  void note(const CardValues& card);

 private:
  using Highest = std::optional<std::string>;  // none: there is no card

  void readCardNumbers(StatementGroup& group);
  void readAssetNumbers(StatementGroup& group, const std::string& category);

  bool haveRead_ = false;
  bool byHand_ = false;
  Highest card_;
  std::map<std::string, Highest> assets_;  // by the category's code in small letters
};

}  // namespace zelkor
