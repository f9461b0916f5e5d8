#pragma once

#include <QPlainTextEdit>
#include <QPushButton>
#include <string>

#include "ui/Form.h"

namespace zelkor {

/// Shows what a command has told at its end, to be read and copied.
class FrmEndDetail final : public Form {
 public:
  FrmEndDetail(FormHost& host, const std::string& text);

 private:
  QPlainTextEdit* TxtDetail = make<QPlainTextEdit>("TxtDetail");
  QPushButton* CmdCopy = make<QPushButton>("CmdCopy", "复制(&C)");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void escapePressed() override { close(); }
};

}  // namespace zelkor
