#pragma once

#include <optional>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "home/AccountSetList.h"
#include "home/frmWorker.h"
#include "store/accountset/AccountSet.h"
#include "ui/Form.h"

namespace zelkor {

/// Asks what a new account set is to be, and makes it: in a folder, or on a server with a folder that names
/// it.
class FrmNewAccountSet final : public Form {
 public:
  explicit FrmNewAccountSet(FormHost& host);

  /// The set that was made.
  const std::optional<KnownAccountSet>& made() const { return made_; }

 private:
  QLineEdit* TxtName = make<QLineEdit>("TxtName");
  QLineEdit* TxtUnit = make<QLineEdit>("TxtUnit");
  QLineEdit* TxtManager = make<QLineEdit>("TxtManager");
  QLineEdit* TxtAccount = make<QLineEdit>("TxtAccount");
  QSpinBox* SpinYear = make<QSpinBox>("SpinYear");
  QSpinBox* SpinMonth = make<QSpinBox>("SpinMonth");
  QCheckBox* CheckSample = make<QCheckBox>("CheckSample", "带示例档案，并视为已初始化(&S)");
  QLineEdit* TxtFolder = make<QLineEdit>("TxtFolder");
  QPushButton* CmdFolder = make<QPushButton>("CmdFolder", "…");
  QLineEdit* TxtServer = make<QLineEdit>("TxtServer");
  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void arrangeControls();
  void closeEvent(QCloseEvent* event) override;
  void escapePressed() override { close(); }
  bool enterPressed(QObject* control) override;
  void CmdFolder_Click();
  void CmdOK_Click();
  void create(const std::string& folder);
  void ended(const std::string& folder, const std::string& failure);
  void lock(bool making);
  void refuse(const std::string& reason, QWidget& field);
  AccountSetOptions options() const;

  std::optional<KnownAccountSet> made_;
  bool making_ = false;
  frmWorker worker_;
};

}  // namespace zelkor
