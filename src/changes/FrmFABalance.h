#pragma once

#include <array>
#include <QComboBox>

#include "changes/BalanceSheet.h"
#include "ui/SheetForm.h"

namespace zelkor {

/// The change sheet of the kind 折旧方法调整: it gives an asset another depreciation method.
class FrmFABalance final : public SheetForm {
 public:
  FrmFABalance(FormHost& host, const std::string& zkDataPath);

 private:
  enum Field : std::size_t {
    Number,
    Date,
    CardNum,
    AssetNum,
    StartDate,
    AssetName,
    Style,
    MethodBefore,
    MethodAfter,
    Reason,
    Operator,
    FieldCount,
  };

  QComboBox* cmbType = make<QComboBox>("cmbType");
  QLineEdit* txtBFID = make<QLineEdit>("txtBFID");
  QLineEdit* txtAFID = make<QLineEdit>("txtAFID");
  QLineEdit* txtTemp = make<QLineEdit>("txtTemp");
  std::array<QLabel*, FieldCount> Text{};  // Text1 to Text11

  void arrangeControls();
  void addEntries();
  void showSheet();
  void Form_Unload() override { balance_.CloseZkData(); }

  void txtMobile_Commit(const QLabel* value, const QString& text);
  bool loadTyped(const std::string& cardNum);
  void cmdMobile_Click(Field field);
  void cmdMethod_Click();
  void add();
  void save();
  bool store();

  ClsBLLBalance balance_;
  BalanceSheet sheet_;
  bool typedIsRefused_ = false;
};

}  // namespace zelkor
