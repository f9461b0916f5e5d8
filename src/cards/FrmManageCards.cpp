#include "cards/FrmManageCards.h"

#include <algorithm>
#include <QBoxLayout>
#include <QSignalBlocker>
#include <utility>

#include "base/RuntimeError.h"
#include "cards/ClsBLLFACards.h"
#include "cards/FrmAddCards.h"
#include "startup/Logs.h"
#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kTitle = "固定资产";
constexpr std::size_t kRowsAtFirst = 200;
constexpr std::size_t kRowsPerTurn = 4000;  // about 20 ms: the window stays alive in between
constexpr std::size_t kFirstCardRow = 1;

}  // namespace

FrmManageCards::FrmManageCards(FormHost& host, const std::string& zkDataPath)
    : Form(host, "FrmManageCards", "卡片管理", Unload::Plain), cards_(run().engine), finder_(run().engine) {
  cards_.setZkDataPath(zkDataPath);
  finder_.setZkDataPath(zkDataPath);
  for (const auto kind : {CardQuery::ByDepartment, CardQuery::ByCategory, CardQuery::Custom}) {
    cmbType->addItem(toQt(cardQueryName(kind)));
  }
  for (const auto kind : {CardFilter::All, CardFilter::InService, CardFilter::Disposed}) {
    cmbFA->addItem(toQt(cardFilterName(kind)));
  }
  arrangeControls();
  mshFA->setGrid(CardList::heading());
  mshFA->fitColumns();
  mshFA->fillWith(CardList::kOperatorColumn);
  connectEvents();
  enableCommands();
  cmbType_Click();
  mshFA->setFocus();
}

void FrmManageCards::arrangeControls() {
  setCommands(tbToolBar, {{"修改", &FrmManageCards::edit, &FrmManageCards::onCard},
                          {"删除", &FrmManageCards::remove, &FrmManageCards::onCard},
                          {},
                          {"刷新", &FrmManageCards::refresh},
                          {},
                          {"退出", &FrmManageCards::close}});
  dressTree(*tvwType);
  // A long name must not widen the window, none must not move the list.
  lblCard->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  lblCard->setMinimumHeight(fontMetrics().height());
  lblCard->setTextFormat(Qt::PlainText);
  QWidget* tree = page(column({cmbType, wide(tvwType)}));
  QWidget* list = page(column({row({cmbFA, stretch(), findBar_}), wide(mshFA), lblCard}));
  arrangeScreen(this, tbToolBar, row({wide(panes(tree, 250, list, 830))}));
  resize(1100, 640);
}

void FrmManageCards::connectEvents() {
  on(cmbType, &QComboBox::currentIndexChanged, &FrmManageCards::cmbType_Click);
  on(cmbFA, &QComboBox::currentIndexChanged, &FrmManageCards::showCardsFromTop);
  on(tvwType, &QTreeWidget::currentItemChanged, &FrmManageCards::showCardsFromTop);
  on(tvwType, &QTreeWidget::itemExpanded, &FrmManageCards::tvwType_Expand);
  on(mshFA, &FlexGrid::rowSelected, &FrmManageCards::showSelectedCard);
  on(mshFA, &FlexGrid::arranged, &FrmManageCards::showSelectedCard);
  on(mshFA, &FlexGrid::rowOpened, &FrmManageCards::edit);
  on(turn_, &QTimer::timeout, &FrmManageCards::readOn);
}

void FrmManageCards::Form_Unload() {
  turn_->stop();
  reading_.reset();
  cards_.CloseZkData();
  finder_.CloseZkData();
}

void FrmManageCards::cmbType_Click() {
  {
    const QSignalBlocker quiet(tvwType);
    nodes_.clear();
    const Foresight tree = foreseeCardTree(cards_, query());
    const CardTreeNode root = cardTreeRoot(cards_, query());
    const TreeRow row{root.key(), "", root.text()};
    loadTree(*tvwType, {&row, 1});
    QTreeWidgetItem& item = *tvwType->topLevelItem(0);
    showNode(item, root);
    addChildren(item);
    item.setExpanded(true);
    item.setIcon(0, openFolderIcon());
    tvwType->setCurrentItem(&item);
  }
  showCardsFromTop();
}

void FrmManageCards::addChildren(QTreeWidgetItem& parent) {
  for (const CardTreeNode& node :
       cardTreeChildren(cards_, nodes_.at(&parent)).value_or(std::vector<CardTreeNode>())) {
    showNode(*addTreeRow(parent, {node.key(), "", node.text(), node.code}), node);
  }
}

/// A node that has children by its archive's count can be opened; they are read then.
void FrmManageCards::showNode(QTreeWidgetItem& item, const CardTreeNode& node) {
  nodes_[&item] = node;
  if (node.children == 0) return;
  item.setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  item.setIcon(0, closedFolderIcon());
}

void FrmManageCards::tvwType_Expand(QTreeWidgetItem* item) {
  if (item->childCount() > 0) return;
  addChildren(*item);
  item->setIcon(0, openFolderIcon());
}

CardTreeNode FrmManageCards::selectedNode() const {
  const auto found = nodes_.find(tvwType->currentItem());
  return found == nodes_.end() ? CardTreeNode() : found->second;
}

void FrmManageCards::showCardsFromTop() {
  fillList(kFirstCardRow);
}

/// The row that is selected stays so, though another card may have moved there.
void FrmManageCards::refresh() {
  finder_.forget();
  fillList(mshFA->currentGridRow().value_or(kFirstCardRow));
}

/// What cannot be opened leaves the grid as it is.
void FrmManageCards::fillList(std::size_t wantedRow) {
  const CardTreeNode node = selectedNode();
  const auto condition = cardTreeCondition(cards_, node);
  if (!condition) return;
  Recordset rows = cards_.rstGetCards(cardListCondition(*condition, filter()));
  if (!rows.isOpen()) return;
  beginList({CardList(std::move(rows)), node.isRoot() ? std::string() : node.name, filter(), wantedRow});
}

void FrmManageCards::beginList(Reading reading) {
  TextGrid grid = CardList::heading();
  try {
    grid.append(reading.list.next(kRowsAtFirst));
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "rstGetCards");
    return;
  }
  TextGrid before = mshFA->setGrid(std::move(grid));
  mshFA->widenColumns();
  if (!reading_) shownBefore_ = std::move(before);
  reading_ = std::move(reading);
  selectWantedRow();
  if (reading_->list.complete()) {
    listIsComplete();
  } else {
    turn_->start(0);
  }
}

void FrmManageCards::readOn() {
  try {
    mshFA->addRows(reading_->list.next(kRowsPerTurn));
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "rstGetCards");
    return abandonList();
  }
  selectWantedRow();
  if (reading_->list.complete()) listIsComplete();
}

void FrmManageCards::listIsComplete() {
  turn_->stop();
  setWindowTitle(toQt(cardListCaption(reading_->nodeName, reading_->filter, reading_->list.cards())));
  reading_.reset();
  shownBefore_ = {};
  mshFA->sortRowsAgain();
  mshFA->widenColumns();
  showSelectedCard();
}

void FrmManageCards::abandonList() {
  turn_->stop();
  reading_.reset();
  mshFA->setGrid(std::exchange(shownBefore_, {}));
  showSelectedCard();
}

/// Selects the wanted row once it is there; of a shorter list its last card.
void FrmManageCards::selectWantedRow() {
  auto& wanted = reading_->wantedRow;
  const std::size_t lastCard = reading_->list.cards();
  if (!wanted || (*wanted > lastCard && !reading_->list.complete())) return;
  if (lastCard > 0) mshFA->selectGridRow(std::min(*wanted, lastCard));
  wanted.reset();
}

std::optional<std::string> FrmManageCards::selectedCard() const {
  const auto row = mshFA->currentGridRow();
  if (!row || mshFA->grid().isTotal(*row)) return std::nullopt;
  return mshFA->grid().text(*row, CardList::kCardNumColumn);
}

std::string FrmManageCards::searchedText(std::size_t row) {
  const std::string& card = mshFA->grid().text(row, CardList::kCardNumColumn);
  return card + " " + mshFA->grid().text(row, CardList::kAssetNumColumn) + " " + finder_.textOf(card);
}

void FrmManageCards::showSelectedCard() {
  enableCommands();
  const auto card = selectedCard();
  const auto summary = card ? finder_.summaryOf(*card) : std::nullopt;
  lblCard->setText(summary ? toQt(summaryLine(*summary)) : QString());
}

void FrmManageCards::edit() {
  const auto card = selectedCard();
  if (!card) return;
  ClsBLLFACards store(run());
  store.setZkDataPath(cards_.ZkDataPath());
  ScreenProperties editor;
  editor.frmType = static_cast<std::int16_t>(CardMode::Stored);
  editor.CardID = store.GetCardID(*card);
  showCardEditor(host(), editor);
}

void FrmManageCards::remove() {
  const auto card = selectedCard();
  if (!card) return;
  const Answer answer = run().dialogs.MsgBox(
      {"确实要删除[" + *card + "]号卡片吗？", Buttons::YesNo, Icon::Question, kTitle, DefaultButton::Second});
  if (answer != Answer::Yes) return;
  ClsBLLFACards store(run());
  store.setZkDataPath(cards_.ZkDataPath());
  const bool deleted = store.DeleteCard(*card);
  run().dialogs.MsgBox("卡片号为[" + *card + "]" + (deleted ? "已成功删除！" : "删除失败！"), Buttons::Ok,
                       deleted ? Icon::Information : Icon::Exclamation, kTitle);
  refresh();
}

}  // namespace zelkor
