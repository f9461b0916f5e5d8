#pragma once

#include <optional>
#include <QPushButton>
#include <string>
#include <vector>

#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// Picks a card for a change sheet from the list of its kind.
class frmCardDetail final : public Form {
 public:
  frmCardDetail(FormHost& host, TextGrid cards);

  /// Cells of the row that was picked; nothing after cancelling.
  const std::optional<std::vector<std::string>>& picked() const { return picked_; }

 private:
  FlexGrid* mshTable = make<FlexGrid>("mshTable");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确认");
  QPushButton* Command2 = make<QPushButton>("Command2", "取消");

  void cmdOK_Click();
  void pick(std::size_t row);
  void escapePressed() override { close(); }

  std::optional<std::vector<std::string>> picked_;
};

}  // namespace zelkor
