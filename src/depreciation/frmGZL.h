#pragma once

#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <set>
#include <vector>

#include "depreciation/Workload.h"
#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// Takes in the month's work of the assets that depreciate by workload.
class frmGZL final : public Form {
 public:
  explicit frmGZL(FormHost& host);

 private:
  QLabel* lblMonth = make<QLabel>("lblMonth");
  FlexGrid* grdGZL = make<FlexGrid>("grdGZL");
  QLineEdit* txtTotal = make<QLineEdit>("txtTotal");
  QLineEdit* txtLJ = make<QLineEdit>("txtLJ");
  QLineEdit* txtDW = make<QLineEdit>("txtDW");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void load();
  void showCard(std::size_t row);
  void beginEdit(std::size_t row);
  void takeWork(std::size_t row, const QString& text);
  void cmdOK_Click();
  void escapePressed() override { close(); }

  CellEditor* editor_ = new CellEditor(grdGZL);
  QDoubleValidator* positive_ = new QDoubleValidator(0, kMostWork, kWorkDecimals, this);
  std::vector<CardWorkload> cards_;
  std::set<std::size_t> changed_;  // places in cards_
};

}  // namespace zelkor
