#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "home/frmToolForm.h"
#include "home/frmWorker.h"
#include "home/ImportReading.h"
#include "home/OpenedSet.h"
#include "ui/FlexGrid.h"

namespace zelkor {

/// Imports a file of cards or of change sheets: shows first what each column is taken for and which rows are
/// bad; the rows themselves are stored by the administrator's tool.
class FrmImport final : public ToolForm {
 public:
  /// `tool` is the program that imports.
  FrmImport(FormHost& host, ImportKind kind, OpenedSet opened, const std::string& tool);

  /// Whether something may have been stored.
  bool imported() const { return imported_; }

 protected:
  bool enterPressed(QObject* control) override;

 private:
  QLineEdit* TxtFile = make<QLineEdit>("TxtFile");
  QPushButton* CmdFile = make<QPushButton>("CmdFile", "…");
  QComboBox* CmbNewType = make<QComboBox>("CmbNewType");
  QComboBox* CmbCharset = make<QComboBox>("CmbCharset");
  QLabel* LblSource = make<QLabel>("LblSource");
  QTabWidget* TabsPreview = make<QTabWidget>("TabsPreview");
  FlexGrid* GridRows = make<FlexGrid>("GridRows");
  FlexGrid* GridColumns = make<FlexGrid>("GridColumns");
  FlexGrid* GridProblems = make<FlexGrid>("GridProblems");
  QCheckBox* CheckBackup = make<QCheckBox>("CheckBackup", "导入前先备份账套(&B)");
  QPushButton* CmdImport = make<QPushButton>("CmdImport", "导入(&I)");
  QPushButton* CmdDetail = make<QPushButton>("CmdDetail", "详情(&X)…");
  QPushButton* CmdRefused = make<QPushButton>("CmdRefused", "打开拒绝的行(&R)");
  QPushButton* CmdClose = make<QPushButton>("CmdClose", "关闭");

  void arrangeControls();
  void fillChoices();
  void connectEvents();
  void CmdFile_Click();
  std::string namedFile() const;
  void fileEntered();
  void lookAgain();
  void showInTitle(const std::string& state);
  void takeReading(const ReadImport& reading);
  void readingFailed(const std::string& reason);
  void showPreview();
  void showRows();
  void showColumns();
  void showProblems();

  void CmdImport_Click();
  void showProgress();
  void ended(const ChildEnd& end);
  std::string aboutRefused(const ChildEnd& end) const;
  /// Whether a row that was stored before is not stored again.
  bool isOnce() const { return order_.kind == ImportKind::Sheets; }
  void CmdDetail_Click();
  void CmdRefused_Click();
  void lockControls() override;

  OpenedSet opened_;
  ImportOrder order_;
  std::optional<ReadImport> reading_;
  std::shared_ptr<std::atomic<std::size_t>> asked_ =  // which look at a file is waited for
      std::make_shared<std::atomic<std::size_t>>(0);
  bool imported_ = false;
  std::string refused_;  // the file of the refused rows
  std::string told_;     // what the import has told
  QTimer progress_;
  frmWorker worker_{frmWorker::kBriefly};
};

}  // namespace zelkor
