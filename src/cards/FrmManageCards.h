#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <QTreeWidget>
#include <string>

#include "cards/CardFinder.h"
#include "cards/CardList.h"
#include "cards/CardTree.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridFindBar.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Lists the cards of a department or category; a card is opened and deleted from here. The first cards are
/// shown at once, the others as the event loop gets to them; the title shows when all are there. Cards are
/// searched by what the columns do not show, and a line below shows it of the selected one.
class FrmManageCards final : public Form {
 public:
  FrmManageCards(FormHost& host, const std::string& zkDataPath);

 private:
  /// A list on its way into the grid.
  struct Reading {
    CardList list;
    std::string nodeName;
    CardFilter filter;
    std::optional<std::size_t> wantedRow;  // to be selected
  };

  Toolbar* tbToolBar = make<Toolbar>("tbToolBar");
  QComboBox* cmbType = make<QComboBox>("cmbType");
  QComboBox* cmbFA = make<QComboBox>("cmbFA");
  QTreeWidget* tvwType = make<QTreeWidget>("tvwType");
  FlexGrid* mshFA = make<FlexGrid>("mshFA");
  GridFindBar* findBar_ = make<GridFindBar>("findBar", *mshFA, "编号、名称、部门或类别",
                                            [this](std::size_t row) { return searchedText(row); });
  QLabel* lblCard = make<QLabel>("lblCard");

  void arrangeControls();
  void connectEvents();
  void Form_Unload() override;

  CardQuery query() const { return static_cast<CardQuery>(cmbType->currentIndex()); }
  CardFilter filter() const { return static_cast<CardFilter>(cmbFA->currentIndex()); }
  CardTreeNode selectedNode() const;
  void addChildren(QTreeWidgetItem& parent);
  void showNode(QTreeWidgetItem& item, const CardTreeNode& node);

  void fillList(std::size_t wantedRow);
  void beginList(Reading reading);
  void readOn();
  void listIsComplete();
  void abandonList();
  void selectWantedRow();
  std::string searchedText(std::size_t row);
  void showSelectedCard();
  /// Number of the card in the current row; nothing in the row of the sum.
  std::optional<std::string> selectedCard() const;
  bool onCard() const { return selectedCard().has_value(); }

  void cmbType_Click();
  void showCardsFromTop();
  void tvwType_Expand(QTreeWidgetItem* item);
  void edit();
  void remove();
  void refresh();

  ClsBLLManageCards cards_;
  CardFinder finder_;
  std::map<const QTreeWidgetItem*, CardTreeNode> nodes_;
  QTimer* turn_ = new QTimer(this);  // runs while a list is being read
  std::optional<Reading> reading_;
  TextGrid shownBefore_;  // comes back when the list cannot be read to its end
};

}  // namespace zelkor
