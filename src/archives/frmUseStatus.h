#pragma once

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <string>

#include "archives/UsageStatuses.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Keeps the usage statuses: a tree of two levels, the list, a single record.
class frmUseStatus final : public Form {
 public:
  explicit frmUseStatus(FormHost& host);

 private:
  enum class Mode { Browse, Add, Change };

  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTreeWidget* TreeView1 = make<QTreeWidget>("TreeView1");
  QTabWidget* TabStrip1 = make<QTabWidget>("TabStrip1");
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");
  QLineEdit* Text1 = make<QLineEdit>("Text1");  // the status above
  QLineEdit* Text2 = make<QLineEdit>("Text2");  // name
  QLineEdit* Text3 = make<QLineEdit>("Text3");  // English name
  QComboBox* Combo1 = make<QComboBox>("Combo1");
  QPushButton* Command1 = make<QPushButton>("Command1", "隐藏目录");
  QAction* ShowCatalog = new QAction("隐藏目录", this);  // of the popup menu

  void arrangeControls();
  void arrangeCommands();
  void connectEvents();
  void Form_Unload() override { statuses_.close(); }

  void reload();
  void show(const std::string& id);
  void setMode(Mode mode);
  bool browsing() const { return mode_ == Mode::Browse; }
  bool editing() const { return !browsing(); }
  bool onRow() const { return browsing() && current_.level > 0; }
  std::string nameOf(const std::string& id);
  UsageStatus entered() const;

  void TreeView1_NodeClick();
  void showOrHideTree();
  void add();
  bool save();
  void remove();
  void cancel();

  UsageStatuses statuses_;
  UsageStatus current_;  // level 0 on the root
  Mode mode_ = Mode::Browse;
};

}  // namespace zelkor
