#pragma once

#include <array>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <string>

#include "archives/AssetTypeMaintenance.h"
#include "archives/AssetTypeTree.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Keeps the asset categories: a tree, the list of what is below its selected entry, a detail page.
class FrmFLBMB final : public Form {
 public:
  explicit FrmFLBMB(FormHost& host);

 private:
  enum class Mode { Browse, Add, Edit };

  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTreeWidget* TvLeft = make<QTreeWidget>("TvLeft");
  QTabWidget* SSTab1 = make<QTabWidget>("SSTab1");
  FlexGrid* MSFlexGrid1 = make<FlexGrid>("MSFlexGrid1");
  QWidget* Picture1 = make<QWidget>("Picture1");
  std::array<QLineEdit*, kAssetTypeLevels> TxtBM = makeArray<QLineEdit, kAssetTypeLevels>("TxtBM");
  QLineEdit* TxtLBMC = make<QLineEdit>("TxtLBMC");
  QLineEdit* TxtSYNX = make<QLineEdit>("TxtSYNX");
  QLineEdit* TxtJCZL = make<QLineEdit>("TxtJCZL");
  QLineEdit* TxtJLDW = make<QLineEdit>("TxtJLDW");
  QComboBox* ComboJTSX = make<QComboBox>("ComboJTSX");
  QLineEdit* TxtZJFF = make<QLineEdit>("TxtZJFF");
  QPushButton* CmdZJFF = make<QPushButton>("CmdZJFF", "…");
  QLineEdit* TxtKPYS = make<QLineEdit>("TxtKPYS");

  void arrangeControls();
  void arrangeDetails();
  void connectEvents();

  void reload();
  void fillList();
  void clearDetails();
  void showDetails(const std::string& code);
  void showParts(const AssetTypeCodeParts& parts, int openLevel);
  void enterMode(Mode mode);
  bool browsing() const { return mode_ == Mode::Browse; }
  bool editing() const { return !browsing(); }
  bool onRow() const { return current_.level > 0; }
  bool mayAdd();
  bool mayEdit() const { return browsing() && onRow(); }
  bool mayRemove() const { return mayEdit() && current_.children == 0; }
  AssetTypeEntry entered() const;

  void TvLeft_NodeClick();
  void MSFlexGrid1_RowColChange(std::size_t row);
  void MSFlexGrid1_DblClick();
  bool TxtZJFF_Validate();
  void CmdZJFF_Click();
  void add();
  void edit();
  void save();
  void cancel();
  void remove();

  Mode mode_ = Mode::Browse;
  std::string treeCode_;     // of the tree's selected entry, "&" for the root
  AssetTypeDetail current_;  // the category that the toolbar works on; level 0 for the root
  int newLevel_ = 0;         // while one is added
};

}  // namespace zelkor
