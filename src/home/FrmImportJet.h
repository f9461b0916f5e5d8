#pragma once

#include <array>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "home/frmToolForm.h"

namespace zelkor {

/// Brings the two Jet files of an old account set into a new one, by the administrator's tool, and shows what
/// was not carried.
class FrmImportJet final : public ToolForm {
 public:
  FrmImportJet(FormHost& host, const std::string& tool);

  /// The folder of the set that was made; empty where none was.
  const std::string& made() const { return made_; }

 protected:
  bool enterPressed(QObject* control) override;

 private:
  QLineEdit* TxtData = make<QLineEdit>("TxtData");
  QPushButton* CmdData = make<QPushButton>("CmdData", "…");
  QLineEdit* TxtSystem = make<QLineEdit>("TxtSystem");
  QPushButton* CmdSystem = make<QPushButton>("CmdSystem", "…");
  QComboBox* CmbCharset = make<QComboBox>("CmbCharset");
  QLineEdit* TxtFolder = make<QLineEdit>("TxtFolder");
  QPushButton* CmdFolder = make<QPushButton>("CmdFolder", "…");
  QLineEdit* TxtServer = make<QLineEdit>("TxtServer");
  QCheckBox* CheckCompare = make<QCheckBox>("CheckCompare", "导入后逐行核对(&K)");
  QPlainTextEdit* TxtTold = make<QPlainTextEdit>("TxtTold");
  QPushButton* CmdImport = make<QPushButton>("CmdImport", "导入(&I)");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void arrangeControls();
  void connectEvents();
  void pickFile(QLineEdit* field, const char* title);
  void offerSystemFile();
  void CmdImport_Click();
  void carry(const std::string& source, const std::string& target);
  void ended(const std::string& target, const ChildEnd& end);
  void broken(const ChildEnd& end, bool isData);
  void finish();
  std::array<std::string, 3> wanted() const;
  void lockControls() override;

  std::string folder_;  // of the set that is being made
  bool faultless_ = true;
  std::array<std::string, 3> carried_;  // what the data file was carried for
  std::string made_;
};

}  // namespace zelkor
