#pragma once

#include <cstddef>
#include <optional>
#include <QPushButton>

#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// Picks a card.
class frmCards final : public Form {
 public:
  explicit frmCards(FormHost& host);

  /// Row of the chosen card in the grid, which has one header row; nothing when the choice was cancelled.
  std::optional<std::size_t> moStrRow() const { return moStrRow_; }
  /// The grid: card number, asset number, asset name, specification, start date, depreciation method,
  /// operator and the method's sID in columns 0 to 7.
  const TextGrid& mshTable() const { return mshTable_->grid(); }

 private:
  FlexGrid* mshTable_ = make<FlexGrid>("mshTable");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确认");
  QPushButton* Command2 = make<QPushButton>("Command2", "取消");

  void escapePressed() override { close(); }
  void take(std::optional<std::size_t> row);

  std::optional<std::size_t> moStrRow_;
};

}  // namespace zelkor
