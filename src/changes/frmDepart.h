#pragma once

#include <QLabel>
#include <QPushButton>
#include <vector>

#include "changes/DepartSplit.h"
#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// Takes the departments between which an asset is split, with their shares, subjects and projects.
class frmDepart final : public Form {
 public:
  explicit frmDepart(FormHost& host);

  /// The confirmed split; empty after cancelling.
  const DepartSplit& split() const { return split_; }

 private:
  FlexGrid* MSFl1 = make<FlexGrid>("MSFl1");
  QLabel* lblTotal = make<QLabel>("lblTotal");
  QPushButton* cmdAdd = make<QPushButton>("cmdAdd", "增加");
  QPushButton* cmdDel = make<QPushButton>("cmdDel", "删除");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");
  CellEditor* editor_ = new CellEditor(MSFl1);

  void arrangeControls();
  void connectEvents();
  void showRows();
  void showRow(std::size_t row);
  SplitRow& at(std::size_t row);

  void edit(std::size_t row, std::size_t column);
  void editBehind(std::size_t row, std::size_t column);
  void take(std::size_t row, std::size_t column, const QString& text);
  void takeDepartment(std::size_t row, const std::string& typed);
  bool takeProject(std::size_t row);
  void askForMissing();
  bool pickInto(std::size_t row, std::size_t column);

  void cmdScanf_Click(std::size_t row, std::size_t column);
  void cmdAdd_Click();
  void cmdDel_Click();
  void cmdOK_Click();
  void escapePressed() override { close(); }

  std::vector<SplitRow> rows_;
  bool refused_ = false;  // what was typed last names nothing
  DepartSplit split_;
};

}  // namespace zelkor
