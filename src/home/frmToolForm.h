#pragma once

#include <functional>
#include <QLabel>
#include <string>
#include <vector>

#include "home/frmModule.h"
#include "ui/Form.h"

namespace zelkor {

/// A dialog whose work the administrator's tool does, as a child of the workbench: it stays until that has
/// ended, and has a line that says how things stand.
class ToolForm : public Form {
 protected:
  /// `tool` is the program; `busy` says why the form cannot be closed while that works.
  ToolForm(FormHost& host, const char* name, const char* caption, const std::string& tool, const char* busy);

  QLabel* LblState = make<QLabel>("LblState");

  void closeEvent(QCloseEvent* event) override;
  void escapePressed() override { close(); }

  void say(const std::string& text, bool alarming = false);
  /// Returns to the field that is wrong.
  void refuse(const std::string& reason, QWidget& field);
  bool toolRuns() const { return tool_.isRunning(); }
  /// What the tool has told last while it works; see frmModule.
  std::string endOfErrors() const { return tool_.endOfErrors(); }
  /// Starts it and answers whether it could be started; otherwise the line says why.
  bool startTool(const std::string& caption, const std::vector<std::string>& words,
                 const std::function<void(const ChildEnd&)>& ended);
  /// Locks what must rest while the tool works, and frees it.
  virtual void lockControls() = 0;

 private:
  std::string program_;
  const char* busy_;
  frmModule tool_;
};

/// What stands in a field, without blanks around it.
std::string trimmedTextOf(const QLineEdit& field);

/// Why an account set cannot lie in that folder, in a sentence; empty where it can.
std::string problemOfSetFolder(const std::string& folder);

}  // namespace zelkor
