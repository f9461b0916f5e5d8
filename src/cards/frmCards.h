#pragma once

#include <cstddef>
#include <optional>
#include <QPushButton>
#include <string>
#include <vector>

#include "cards/CardFinder.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridFindBar.h"

namespace zelkor {

enum class CardPick { One, Several };

/// Picks a card, or several where the caller takes them.
class frmCards final : public Form {
 public:
  explicit frmCards(FormHost& host, CardPick pick = CardPick::One);

  /// Offers only the cards whose card number and asset number begin like that.
  void showOnly(const std::string& cardNumber, const std::string& assetNumber);
  /// Opens the search with that text, as if it had been typed there; Enter takes the first match.
  bool beginSearch(const QString& text) override { return findBar_->searchFor(text); }

  /// Row of the chosen card in the grid, which has one header row; nothing when the choice was cancelled.
  std::optional<std::size_t> moStrRow() const { return moStrRow_; }
  /// Rows of all chosen cards from top to bottom.
  const std::vector<std::size_t>& chosenRows() const { return chosenRows_; }
  /// The grid, its columns those of `cardPickerList`.
  const TextGrid& mshTable() const { return mshTable_->grid(); }

 private:
  FlexGrid* mshTable_ = make<FlexGrid>("mshTable");
  GridFindBar* findBar_ = make<GridFindBar>("findBar", *mshTable_, "编号、名称、部门或类别",
                                            [this](std::size_t row) { return searchedText(row); });
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确认");
  QPushButton* Command2 = make<QPushButton>("Command2", "取消");

  void escapePressed() override { close(); }
  std::string searchedText(std::size_t row);
  void take(std::vector<std::size_t> rows);

  CardFinder finder_;
  std::optional<std::size_t> moStrRow_;
  std::vector<std::size_t> chosenRows_;
};

}  // namespace zelkor
