#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/TextGrid.h"
#include "store/engine/Recordset.h"

namespace zelkor {

/// Which cards the list shows, in the order in which the screen offers them.
enum class CardFilter : int { All, InService, Disposed };

std::string_view cardFilterName(CardFilter filter);

/// The condition for a node's cards that pass the filter; empty when neither restricts.
std::string cardListCondition(std::string_view nodeCondition, CardFilter filter);

/// Title of the screen above a list; `nodeName` is empty for a root.
std::string cardListCaption(std::string_view nodeName, CardFilter filter, std::size_t cards);

/// The list of cards on its way from the file into a grid, a few rows at a time: an account set can hold
/// 100,000 cards, and the first of them are to be seen before the last has been read.
class CardList {
 public:
  /// Column of the card number; column 0 stays empty.
  static constexpr std::size_t kCardNumColumn = 1;
  static constexpr std::size_t kAssetNumColumn = 5;
  static constexpr std::size_t kOperatorColumn = 7;

  /// `rows` are those of ClsBLLManageCards::rstGetCards. Of each card the first row counts.
  explicit CardList(Recordset rows);

  /// The list's columns under their headings, without a card.
  static TextGrid heading();
  /// The next cards, at most `limit`, as rows of these columns. Behind the last card the row with the sum
  /// follows, and the list is complete.
  TextGrid next(std::size_t limit);

  bool complete() const { return complete_; }
  std::size_t cards() const { return cards_; }

 private:
  void addCard(TextGrid& grid);
  void addTotal(TextGrid& grid);

  Recordset rows_;
  std::optional<std::string> lastCard_;
  std::size_t cards_ = 0;
  long double total_ = 0;  // wide enough to add up any number of amounts without losing a cent
  bool complete_ = false;
};

}  // namespace zelkor
