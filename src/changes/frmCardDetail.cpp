#include "changes/frmCardDetail.h"

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

// Of all lists.
enum : std::size_t { kCardNum, kAssetNum, kAssetName };

}  // namespace

frmCardDetail::frmCardDetail(FormHost& host, TextGrid cards)
    : Form(host, "frmCardDetail", "选择", Unload::Plain), finder_(run().engine) {
  finder_.setZkDataPath(run().gstrZtFile);
  const std::size_t count = cards.rows() - cards.headerRows();
  mshTable->setGrid(std::move(cards));
  mshTable->fitColumns();
  mshTable->fillWith(kAssetName);
  mshTable->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* told = note("共 " + QString::number(count) + " 张卡片，双击或按回车键选择，Ctrl+F 查找。");
  arrange(this, column({findBar_, wide(mshTable), row({wide(told), cmdOK, Command2})}));
  resize(860, 480);
  on(mshTable, &FlexGrid::rowOpened, &frmCardDetail::pick);
  on(cmdOK, &QPushButton::clicked, &frmCardDetail::cmdOK_Click);
  on(Command2, &QPushButton::clicked, [this] { close(); });
  if (count > 0) mshTable->selectGridRow(mshTable->grid().headerRows());
}

void frmCardDetail::cmdOK_Click() {
  if (const auto row = mshTable->currentGridRow()) return pick(*row);
  close();
}

std::string frmCardDetail::searchedText(std::size_t row) {
  const TextGrid& cards = mshTable->grid();
  std::string text = finder_.textOf(cards.text(row, kCardNum));
  for (const std::size_t column : {kCardNum, kAssetNum, kAssetName}) text += " " + cards.text(row, column);
  return text;
}

void frmCardDetail::pick(std::size_t row) {
  const TextGrid& cards = mshTable->grid();
  picked_.emplace();
  for (std::size_t column = 0; column < cards.columns(); ++column)
    picked_->push_back(cards.text(row, column));
  close();
}

}  // namespace zelkor
