#pragma once

#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>
#include <vector>

#include "closing/DisposalGrid.h"
#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// What the two screens for disposals have in common: a list of assets, filled from the card picker, in which
/// a person enters how each of them leaves.
class frmDisposalList : public Form {
 protected:
  /// `grid` is the name of the list among the form's controls.
  frmDisposalList(FormHost& host, const char* name, const char* caption, const char* grid);

  const TextGrid& list() const { return grid_->grid(); }
  void setList(TextGrid list);
  /// The way that was picked last; it counts for every asset of the list.
  const std::string& pickedWay() const { return pickedWay_; }

  /// What is being typed is in the list by then.
  virtual void cmdOK_Click() = 0;
  /// The columns without which an asset does not leave.
  virtual std::vector<std::size_t> required() const = 0;

 private:
  QLabel* lblKPCode = make<QLabel>("lblKPCode", "卡片编号");
  QLineEdit* txtKPCode = make<QLineEdit>("txtKPCode");
  QPushButton* cmdKP = make<QPushButton>("cmdKP", "…");
  QLabel* lblZCCode = make<QLabel>("lblZCCode", "资产编号");
  QLineEdit* txtZCCode = make<QLineEdit>("txtZCCode");
  QPushButton* cmdZC = make<QPushButton>("cmdZC", "…");
  QPushButton* cmdTJ = make<QPushButton>("cmdTJ", "条件(&C)");
  FlexGrid* grid_;
  QPushButton* cmdAdd = make<QPushButton>("cmdAdd", "增加");
  QPushButton* cmdRemove = make<QPushButton>("cmdRemove", "移出");
  QPushButton* cmdOK = make<QPushButton>("cmdOK", "确定");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void arrangeControls();
  void widenColumns();
  void connectEvents();
  void add(const std::vector<PickedCard>& cards, const std::string& date);
  /// Adds picked cards without a date and shows the first one's numbers in the fields.
  void pickBeside(const QString& cardNumber, const QString& assetNumber);
  void cmdRemove_Click();
  void beginEdit(std::size_t row, std::size_t column);
  void cmdEdit_Click(std::size_t row, std::size_t column);
  void takeText(std::size_t row, std::size_t column, const QString& text);
  bool isEmpty() const;
  void askForMissing();
  void escapePressed() override;

  CellEditor* editor_;
  QDoubleValidator* amount_;
  std::string pickedWay_;
};

}  // namespace zelkor
