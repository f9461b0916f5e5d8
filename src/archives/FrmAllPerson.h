#pragma once

#include <optional>
#include <QPushButton>
#include <string>

#include "startup/ClsPerson.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridFindBar.h"

namespace zelkor {

/// Picks a member of staff.
class FrmAllPerson final : public Form {
 public:
  explicit FrmAllPerson(FormHost& host);

  /// The staff to choose from.
  void setAllPerson(const Recordset& persons);
  /// Who was chosen; nobody after cancelling.
  const std::optional<ClsPerson>& SelectPerson() const { return selectPerson_; }
  /// Opens the search with that text, as if it had been typed there; Enter takes the first match.
  bool beginSearch(const QString& text) override { return findBar_->searchFor(text); }

 private:
  FlexGrid* GridPerson = make<FlexGrid>("GridPerson");
  GridFindBar* findBar_ = make<GridFindBar>("findBar", *GridPerson, "编号、名称或部门",
                                            [this](std::size_t row) { return searchedText(row); });
  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  std::string searchedText(std::size_t row) const;
  void GridPerson_RowColChange(std::size_t row);
  void CmdCancel_Click();
  void escapePressed() override { CmdCancel_Click(); }

  std::optional<ClsPerson> selectPerson_;
};

}  // namespace zelkor
