#include "cards/frmCards.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QScrollBar>

#include "cards/CardPickerList.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmCards::frmCards(FormHost& host, CardPick pick) : Form(host, "frmCards", "卡片参照", Unload::Plain) {
  arrange(this, column({wide(mshTable_), row({stretch(), cmdOK, Command2})}));
  resize(860, 460);
  mshTable_->setGrid(cardPickerList(run()));
  mshTable_->fitColumns();
  if (pick == CardPick::Several) mshTable_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  cmdOK->setEnabled(false);
  on(mshTable_, &FlexGrid::rowSelected, [this] { cmdOK->setEnabled(true); });
  on(mshTable_, &FlexGrid::rowOpened, [this](std::size_t row) { take({row}); });
  on(cmdOK, &QPushButton::clicked, [this] { take(mshTable_->selectedGridRows()); });
  on(Command2, &QPushButton::clicked, [this] { close(); });
}

void frmCards::showOnly(const std::string& cardNumber, const std::string& assetNumber) {
  TextGrid cards = mshTable_->grid();
  for (std::size_t row = cards.headerRows(); row < cards.rows(); ++row) {
    const bool wanted = cards.text(row, card_column::CardNum).starts_with(cardNumber) &&
                        cards.text(row, card_column::AssetNum).starts_with(assetNumber);
    cards.setRowHidden(row, !wanted);
  }
  mshTable_->setGrid(std::move(cards));
}

/// The name gets the room that the columns leave free.
void frmCards::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  const int room =
      mshTable_->width() - 2 * mshTable_->frameWidth() - mshTable_->verticalScrollBar()->sizeHint().width();
  const int spare = room - mshTable_->horizontalHeader()->length();
  constexpr int kName = card_column::AssetName;
  if (spare > 0) mshTable_->setColumnWidth(kName, mshTable_->columnWidth(kName) + spare);
}

void frmCards::take(std::vector<std::size_t> rows) {
  if (rows.empty()) return;
  moStrRow_ = rows.front();
  chosenRows_ = std::move(rows);
  close();
}

}  // namespace zelkor
