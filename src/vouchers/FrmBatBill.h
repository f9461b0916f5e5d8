#pragma once

#include <optional>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>

#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"
#include "vouchers/BatchBilling.h"

namespace zelkor {

/// Makes vouchers of staged events: chooses and merges them on the first tab, completes the subjects of their
/// lines on the second.
class FrmBatBill final : public Form {
 public:
  explicit FrmBatBill(FormHost& host);

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTabWidget* SSTab1 = make<QTabWidget>("SSTab1");
  FlexGrid* MSFlexGridXZ = make<FlexGrid>("MSFlexGridXZ");
  FlexGrid* MSFlexGridSZ = make<FlexGrid>("MSFlexGridSZ");
  QLabel* Label1 = make<QLabel>("Label1", "合并号：");
  QComboBox* ComboHBH = make<QComboBox>("ComboHBH");
  QCheckBox* CheckHB = make<QCheckBox>("CheckHB", "合并(科目及辅助项相同的分录)");
  QLabel* Label2 = make<QLabel>("Label2", "已用合并号");
  QListWidget* ListUsed = make<QListWidget>("ListUsed");
  QLabel* LblChosen = make<QLabel>("LblChosen");

  void arrangeControls();
  void arrangeCommands();
  void connectEvents();
  void SSTab1_Click();
  void MSFlexGridXZ_Click();
  void CmdKM_Click(std::size_t row);
  void ToolPZ();

  void endTyping();
  void markAll();
  void unmarkAll();
  bool save();
  void makeVoucher();
  void refresh();
  void showLists();
  void showMarks();
  void showCount();
  void editMergeNumber(std::size_t row);
  void takeMergeNumber(std::size_t row, std::size_t column, const QString& number);
  void editSubject(std::size_t row);
  void takeSubject(std::size_t row, std::size_t column, const QString& code);
  void goOnBehind(std::size_t row);

  BatchBilling billing_;
  CellEditor* mergeInput_ = new CellEditor(MSFlexGridXZ);  // TxtInput over the selection list
  CellEditor* subjectInput_ = new CellEditor(MSFlexGridSZ);
  std::optional<std::size_t> refused_;  // the line whose new subject the chart does not have
};

}  // namespace zelkor
