#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "home/frmToolForm.h"
#include "home/frmWorker.h"
#include "transfer/backup/BackupFolder.h"
#include "ui/FlexGrid.h"

namespace zelkor {

/// Puts a backup in the place of an account set, or into a new folder: the backups of a folder are listed,
/// the administrator's tool restores the one that is chosen.
class FrmRestore final : public ToolForm {
 public:
  /// Begins with the account set of that folder, which may be empty. `tool` is the program that restores.
  FrmRestore(FormHost& host, const std::string& setFolder, const std::string& tool);

  /// The folder of the account set that was restored; empty where none was.
  const std::string& restored() const { return restored_; }

 protected:
  bool enterPressed(QObject* control) override;

 private:
  QLineEdit* TxtFrom = make<QLineEdit>("TxtFrom");
  QPushButton* CmdFrom = make<QPushButton>("CmdFrom", "…");
  FlexGrid* GridBackups = make<FlexGrid>("GridBackups");
  QLineEdit* TxtTarget = make<QLineEdit>("TxtTarget");
  QPushButton* CmdTarget = make<QPushButton>("CmdTarget", "…");
  QPushButton* CmdRestore = make<QPushButton>("CmdRestore", "恢复(&R)");
  QPushButton* CmdDetail = make<QPushButton>("CmdDetail", "详情(&X)…");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void arrangeControls();
  void pick(QLineEdit* field, const char* title);
  void list();
  void showProblem();
  void takeList(std::vector<ListedBackup> found);
  const ListedBackup* chosen() const;
  void CmdRestore_Click();
  void ask(const ListedBackup& backup, const std::string& target, const std::string& otherName);
  void ended(const std::string& target, const ChildEnd& end);
  void lockControls() override;

  std::string listed_;  // the folder whose backups are shown
  std::vector<ListedBackup> backups_;
  bool looking_ = false;  // at what is in the target
  std::string told_;
  std::string restored_;
  frmWorker worker_{frmWorker::kBriefly};
};

}  // namespace zelkor
