#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <string>

#include "archives/ClsBLLDepart.h"
#include "archives/DepartSubjects.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Keeps the depreciation subject of each department.
class FrmDepartPzCode final : public Form {
 public:
  explicit FrmDepartPzCode(FormHost& host);

 private:
  enum class SavedBy { Command, EnterKey };

  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTreeWidget* TvLeft = make<QTreeWidget>("TvLeft");
  QTabWidget* SSTab1 = make<QTabWidget>("SSTab1");
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");
  QLabel* LblBMBM1 = make<QLabel>("LblBMBM1");
  QLabel* LblBMBM2 = make<QLabel>("LblBMBM2");
  QLabel* LblBMMC = make<QLabel>("LblBMMC");
  QLabel* LblSJMC = make<QLabel>("LblSJMC");
  QLabel* LblZJKM = make<QLabel>("LblZJKM");
  QLineEdit* TxtGDZCDZKM = make<QLineEdit>("TxtGDZCDZKM");
  QPushButton* CmdGDZCDZKM = make<QPushButton>("CmdGDZCDZKM", "…");

  void arrangeControls();
  void arrangeCommands();
  void connectEvents();
  void Form_Unload() override { departs_.CloseZkData(); }
  bool enterPressed(QObject* control) override;

  void reload();
  void showStored();
  void fillList();
  void showDetails(const std::string& code);
  void setEditing(bool editing);
  bool editing() const { return editing_; }
  bool browsing() const { return !editing_; }
  bool mayEdit() const { return browsing() && !current_.code.empty(); }

  void TvLeft_NodeClick();
  void save(SavedBy way);
  void cancel();

  ClsBLLDepart departs_;
  std::string treeCode_;   // of the tree's selected entry, "&" for the root
  DepartSubject current_;  // without a code on the root
  bool editing_ = false;
};

}  // namespace zelkor
