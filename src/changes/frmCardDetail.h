#pragma once

#include <optional>
#include <QPushButton>
#include <string>
#include <vector>

#include "cards/CardFinder.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridFindBar.h"

namespace zelkor {

/// Picks a card for a change sheet from the list of its kind.
class frmCardDetail final : public Form {
 public:
  frmCardDetail(FormHost& host, TextGrid cards);

  /// Cells of the row that was picked; nothing after cancelling.
  const std::optional<std::vector<std::string>>& picked() const { return picked_; }
  /// Opens the search with that text, as if it had been typed there; Enter takes the first match.
  bool beginSearch(const QString& text) override { return findBar_->searchFor(text); }

 private:
  FlexGrid* mshTable = make<FlexGrid>("mshTable");
  GridFindBar* findBar_ = make<GridFindBar>("findBar", *mshTable, "编号、名称、部门或类别",
                                            [this](std::size_t row) { return searchedText(row); });
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确认");
  QPushButton* Command2 = make<QPushButton>("Command2", "取消");

  void cmdOK_Click();
  void pick(std::size_t row);
  std::string searchedText(std::size_t row);
  void escapePressed() override { close(); }

  CardFinder finder_;
  std::optional<std::vector<std::string>> picked_;
};

}  // namespace zelkor
