#include "cards/frmCards.h"

#include <QBoxLayout>

#include "cards/CardPickerList.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmCards::frmCards(FormHost& host) : Form(host, "frmCards", "卡片参照", Unload::Plain) {
  arrange(this, column({wide(mshTable_), row({stretch(), cmdOK, Command2})}));
  resize(860, 460);
  mshTable_->setGrid(cardPickerList(run()));
  mshTable_->fitColumns();
  cmdOK->setEnabled(false);
  on(mshTable_, &FlexGrid::rowSelected, [this] { cmdOK->setEnabled(true); });
  on(mshTable_, &FlexGrid::rowOpened, [this](std::size_t row) { take(row); });
  on(cmdOK, &QPushButton::clicked, [this] { take(mshTable_->currentGridRow()); });
  on(Command2, &QPushButton::clicked, [this] { close(); });
}

void frmCards::take(std::optional<std::size_t> row) {
  moStrRow_ = row;
  close();
}

}  // namespace zelkor
