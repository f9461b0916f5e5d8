#pragma once

#include <cstddef>
#include <optional>
#include <QMenu>

#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"
#include "vouchers/Digests.h"

namespace zelkor {

/// Keeps the common digests of vouchers and gives one back. A cell is edited where it is clicked. A new row
/// is stored once it has a code and a text; until then it is in the grid alone.
class frmPZDigest final : public Form {
 public:
  explicit frmPZDigest(FormHost& host);

  /// The digest that was taken over; nothing when the screen was left otherwise.
  const std::optional<Digest>& chosen() const { return chosen_; }

 private:
  Toolbar* CmdArray = make<Toolbar>("CmdArray");
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");
  QMenu* mnu_pop = make<QMenu>("mnu_pop");

  void arrangeControls();
  void arrangeMenu();
  void CmdCodeView_Click(std::size_t row, std::size_t column);

  void add();
  void remove();
  void takeOver();
  void leave();
  void endEdit();
  void editCell(std::size_t row, std::size_t column);
  void keepEdit(std::size_t row, std::size_t column, const QString& text);
  void moveOn(std::size_t row, std::size_t column);
  bool storeNewRow();
  bool leaveNewRow();
  void refuse(DigestRefusal refusal);
  Digest digestIn(std::size_t row) const;
  void removeRow(std::size_t row);
  void escapePressed() override { close(); }

  CellEditor* TxtAdd = new CellEditor(MSFlexGrid1);
  Digests digests_;
  std::optional<std::size_t> newRow_;  // the last row, while it is not stored
  std::optional<QString> refused_;     // what was typed into a stored row and is not stored
  std::optional<Digest> chosen_;
};

/// Lets a person choose a digest; nothing when the screen was left otherwise.
std::optional<Digest> pickDigest(FormHost& host);

}  // namespace zelkor
