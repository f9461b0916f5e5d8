#pragma once

#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <string>

#include "changes/ProjectLists.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

struct PickedProject {
  std::string classNumber;
  std::string code;
  std::string name;
};

/// Picks a project: classes and their groups in a tree, the projects of the selected one in a grid.
class frmProject final : public Form {
 public:
  explicit frmProject(FormHost& host);

  /// What was picked; empty after cancelling.
  const PickedProject& picked() const { return picked_; }
  /// In the field below the list, where Enter takes the project that has been found.
  bool beginSearch(const QString& text) override;

 private:
  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTreeWidget* TreeView1 = make<QTreeWidget>("TreeView1");
  FlexGrid* MSFG1 = make<FlexGrid>("MSFG1");
  QLineEdit* Text1 = make<QLineEdit>("Text1");
  QRadioButton* opA = make<QRadioButton>("opA", "全部");
  QRadioButton* opC = make<QRadioButton>("opC", "内容");
  QRadioButton* opR = make<QRadioButton>("opR", "右");
  QRadioButton* opL = make<QRadioButton>("opL", "左");

  void arrangeControls();
  void connectEvents();
  void load();
  void showClass(QTreeWidgetItem& projectClass);
  void showOnlyGroup(std::string_view code);
  ProjectMatch match() const;
  void locateBehind(std::size_t row);

  void TreeView1_NodeClick();
  void pick(std::size_t row);
  void pickCurrent();
  bool enterPressed(QObject* control) override;
  void escapePressed() override { close(); }

  std::string classNumber_;  // whose projects the grid shows
  PickedProject picked_;
  bool seeking_ = false;
};

}  // namespace zelkor
