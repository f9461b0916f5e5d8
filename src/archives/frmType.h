#pragma once

#include <optional>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "archives/ArchiveTrees.h"
#include "archives/ClsBLLType.h"
#include "ui/Form.h"

namespace zelkor {

/// Shows the ways of addition and reduction as a tree whose branches are read when they are opened.
class frmType final : public Form {
 public:
  explicit frmType(FormHost& host);

  const std::string& ZkDataPath() const { return types_.ZkDataPath(); }
  /// The data file to read; to be set before the dialog is shown.
  void setZkDataPath(const std::string& path);
  /// What was chosen; nothing when the dialog was left without a choice.
  const std::optional<ArchiveEntry>& chosen() const { return chosen_; }

 private:
  QTreeWidget* tvwType = make<QTreeWidget>("tvwType");
  QPushButton* cmdYes = make<QPushButton>("cmdYes", "确认");
  QPushButton* cmdCancel = make<QPushButton>("cmdCancel", "取消");

  void load();
  void addNodes(QTreeWidgetItem& parent, std::string_view node);
  void tvwType_Expand(QTreeWidgetItem* item);
  void cmdYes_Click();
  bool enterPressed(QObject* control) override;
  void escapePressed() override { close(); }
  void Form_Unload() override;

  ClsBLLType types_;
  std::optional<ArchiveEntry> chosen_;
  bool taken_ = false;
};

}  // namespace zelkor
