#pragma once

#include <cstddef>
#include <optional>
#include <QPushButton>
#include <string>
#include <vector>

#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

enum class CardPick { One, Several };

/// Picks a card, or several where the caller takes them.
class frmCards final : public Form {
 public:
  explicit frmCards(FormHost& host, CardPick pick = CardPick::One);

  /// Offers only the cards whose card number and asset number begin like that.
  void showOnly(const std::string& cardNumber, const std::string& assetNumber);

  /// Row of the chosen card in the grid, which has one header row; nothing when the choice was cancelled.
  std::optional<std::size_t> moStrRow() const { return moStrRow_; }
  /// Rows of all chosen cards from top to bottom.
  const std::vector<std::size_t>& chosenRows() const { return chosenRows_; }
  /// The grid, its columns those of `cardPickerList`.
  const TextGrid& mshTable() const { return mshTable_->grid(); }

 private:
  FlexGrid* mshTable_ = make<FlexGrid>("mshTable");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确认");
  QPushButton* Command2 = make<QPushButton>("Command2", "取消");

  void escapePressed() override { close(); }
  void resizeEvent(QResizeEvent* event) override;
  void take(std::vector<std::size_t> rows);

  std::optional<std::size_t> moStrRow_;
  std::vector<std::size_t> chosenRows_;
};

}  // namespace zelkor
