#include "cards/frmCards.h"

#include <QBoxLayout>

#include "cards/CardPickerList.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmCards::frmCards(FormHost& host, CardPick pick)
    : Form(host, "frmCards", "卡片参照", Unload::Plain), finder_(run().engine) {
  finder_.setZkDataPath(run().gstrZtFile);
  arrange(this, column({findBar_, wide(mshTable_), row({stretch(), cmdOK, Command2})}));
  resize(860, 460);
  mshTable_->setGrid(cardPickerList(run()));
  mshTable_->fitColumns();
  mshTable_->fillWith(card_column::AssetName);
  if (pick == CardPick::One) mshTable_->setSelectionMode(QAbstractItemView::SingleSelection);
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

std::string frmCards::searchedText(std::size_t row) {
  const TextGrid& cards = mshTable();
  const std::string& card = cards.text(row, card_column::CardNum);
  return card + " " + cards.text(row, card_column::AssetNum) + " " + finder_.textOf(card);
}

void frmCards::take(std::vector<std::size_t> rows) {
  if (rows.empty()) return;
  moStrRow_ = rows.front();
  chosenRows_ = std::move(rows);
  close();
}

}  // namespace zelkor
