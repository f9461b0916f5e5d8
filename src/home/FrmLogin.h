#pragma once

#include <optional>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "home/AccountSetState.h"
#include "home/OpenedSet.h"
#include "ui/Form.h"

namespace zelkor {

/// Asks who works with an account set, and for which day.
class FrmLogin final : public Form {
 public:
  /// Begins with what `opened` holds.
  FrmLogin(FormHost& host, const OpenedSet& opened, const std::optional<OpenPeriod>& open);

  /// What was agreed to.
  const std::optional<OpenedSet>& agreed() const { return agreed_; }

 private:
  QLabel* LblSet = make<QLabel>("LblSet");
  QLineEdit* TxtUser = make<QLineEdit>("TxtUser");
  QDateEdit* DateOp = make<QDateEdit>("DateOp");
  QLabel* LblWarning = make<QLabel>("LblWarning");
  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void arrangeControls();
  void escapePressed() override { close(); }
  DateTime date() const;
  void warn();
  void CmdOK_Click();

  OpenedSet opened_;
  std::optional<OpenPeriod> open_;
  std::optional<OpenedSet> agreed_;
};

/// Asks; nothing when it was cancelled.
std::optional<OpenedSet> askLogin(FormHost& host, const OpenedSet& opened,
                                  const std::optional<OpenPeriod>& open);

}  // namespace zelkor
