#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <string>

#include "ui/Form.h"
#include "ui/UpDown.h"

namespace zelkor {

/// Picks a depreciation method.
class FrmZJFFCZ final : public Form {
 public:
  explicit FrmZJFFCZ(FormHost& host);

  /// Name of the chosen method; empty after cancelling.
  const std::string& pZJFF() const { return pZJFF_; }
  /// The method that is shown as chosen at first.
  void setpZJFF(const std::string& name);

 private:
  QTreeWidget* TvLeft = make<QTreeWidget>("TvLeft");
  QRadioButton* OptionBM = make<QRadioButton>("OptionBM", "按编码查询");
  QRadioButton* OptionMC = make<QRadioButton>("OptionMC", "按名称查询");
  QLineEdit* TxtZJFF = make<QLineEdit>("TxtZJFF");
  UpDown* UpDown1 = make<UpDown>("UpDown1");
  QPushButton* CmdYes = make<QPushButton>("CmdYes", "确认");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void arrangeControls();
  void TvLeft_NodeClick();
  void TxtZJFF_Edited(const QString& text);
  void UpDown1_Change(int direction);
  void CmdYes_Click();
  void CmdCancel_Click();
  void escapePressed() override { CmdCancel_Click(); }

  std::string pZJFF_;
  QString searched_;  // what was typed; stepping through the matches writes their names into the field
};

}  // namespace zelkor
