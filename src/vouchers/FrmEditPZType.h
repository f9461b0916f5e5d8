#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <QPushButton>

#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"
#include "vouchers/VoucherTypeTable.h"

namespace zelkor {

/// Keeps the voucher types. A row that was changed is stored when it is left.
class FrmEditPZType final : public Form {
 public:
  /// `BLLPZType` must outlive the form.
  FrmEditPZType(FormHost& host, ClsBLLPZType& BLLPZType);

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  FlexGrid* GridDsign = make<FlexGrid>("GridDsign");
  std::array<QPushButton*, 2> CmdSort = makeArray<QPushButton, 2>("CmdSort");  // down, up

  void arrangeControls();
  void connectEvents();
  void CmdFind_Click();
  void ComboDsignType_Click();

  void add();
  void remove();
  void leave();
  void move(bool moved, std::size_t to);
  void editCell(std::size_t row, std::size_t column);
  void leaveCell(std::size_t row, std::size_t column, const QString& text);
  void moveOn(std::size_t row, std::size_t column);
  void stayIn(std::size_t row, std::size_t column, const QString& text);
  bool leaveEditor();
  void changeRow(std::size_t row);
  bool leaveRow();
  void refuse(const std::string& text);
  void showTable(std::optional<std::size_t> row);

  ClsBLLPZType& BLLPZType_;
  VoucherTypeTable table_;
  CellEditor* editor_ = new CellEditor(GridDsign);  // TxtEdit with CmdFind, or ComboDsignType
  std::optional<std::size_t> currentRow_;
  bool changed_ = false;            // the current row, since it was stored
  std::optional<QString> refused_;  // the text that keeps the editor open
};

}  // namespace zelkor
