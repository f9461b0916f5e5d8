#pragma once

#include <optional>
#include <QPushButton>

#include "startup/ClsPerson.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// Picks a member of staff.
class FrmAllPerson final : public Form {
 public:
  explicit FrmAllPerson(FormHost& host);

  /// The staff to choose from.
  void setAllPerson(const Recordset& persons);
  /// Who was chosen; nobody after cancelling.
  const std::optional<ClsPerson>& SelectPerson() const { return selectPerson_; }

 private:
  FlexGrid* GridPerson = make<FlexGrid>("GridPerson");
  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void GridPerson_RowColChange(std::size_t row);
  void CmdCancel_Click();
  void escapePressed() override { CmdCancel_Click(); }

  std::optional<ClsPerson> selectPerson_;
};

}  // namespace zelkor
