#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "ui/Form.h"

namespace zelkor {

/// Lets nobody go on who has not typed the account set's name: what follows cannot be taken back.
class FrmConfirmName final : public Form {
 public:
  FrmConfirmName(FormHost& host, const std::string& name);

  bool confirmed() const { return confirmed_; }

 private:
  QLineEdit* TxtName = make<QLineEdit>("TxtName");
  QPushButton* CmdOK = make<QPushButton>("CmdOK", "确定");
  QPushButton* CmdCancel = make<QPushButton>("CmdCancel", "取消");

  void escapePressed() override { close(); }

  bool confirmed_ = false;
};

}  // namespace zelkor
