#include "closing/frmDisposalList.h"

#include <algorithm>
#include <QBoxLayout>
#include <QDoubleValidator>
#include <QHeaderView>
#include <QLocale>

#include "archives/frmCnDate.h"
#include "archives/frmSelectUseStatus.h"
#include "cards/CardPickerList.h"
#include "cards/frmCards.h"
#include "store/engine/Statement.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;
using namespace disposal_column;

constexpr double kMostAmount = 1e12;
constexpr int kDecimals = 2;

/// The cards that a person chooses from those whose numbers begin like that.
std::vector<PickedCard> pickCards(FormHost& host, const std::string& cardNumber,
                                  const std::string& assetNumber) {
  frmCards picker(host, CardPick::Several);
  picker.showOnly(cardNumber, assetNumber);
  host.showModal(picker);
  std::vector<PickedCard> cards;
  for (const std::size_t row : picker.chosenRows()) {
    const TextGrid& offered = picker.mshTable();
    cards.push_back({offered.text(row, card_column::CardNum), offered.text(row, card_column::AssetNum),
                     offered.text(row, card_column::AssetName)});
  }
  return cards;
}

}  // namespace

frmDisposalList::frmDisposalList(FormHost& host, const char* name, const char* caption, const char* grid)
    : Form(host, name, caption, Unload::Plain),
      grid_(make<FlexGrid>(grid)),
      editor_(new CellEditor(grid_)),
      amount_(new QDoubleValidator(0, kMostAmount, kDecimals, this)) {
  amount_->setNotation(QDoubleValidator::StandardNotation);
  amount_->setLocale(QLocale::c());
  arrangeControls();
  connectEvents();
  setList(emptyDisposalGrid());
  widenColumns();
}

void frmDisposalList::arrangeControls() {
  editor_->findChild<QLineEdit*>()->setObjectName("txtEdit");
  editor_->findChild<QPushButton*>()->setObjectName("cmdEdit");
  lblKPCode->setBuddy(txtKPCode);
  lblZCCode->setBuddy(txtZCCode);
  for (QPushButton* pick : {cmdKP, cmdZC}) dressPick(pick);
  arrange(
      this,
      column({row({lblKPCode, txtKPCode, cmdKP, space(16), lblZCCode, txtZCCode, cmdZC, space(16), cmdTJ,
                   stretch()}),
              wide(grid_),
              note("单击单元格，或在一行上按回车键，填写减少日期、减少方式、清理收入、清理费用和清理原因。"),
              row({cmdAdd, cmdRemove, stretch(), cmdOK, cmdCancel})}));
  resize(900, 480);
}

/// The list's own widths are too narrow for dates and names in the font of the screens.
void frmDisposalList::widenColumns() {
  for (int column = 0; column < static_cast<int>(list().columns()); ++column) {
    grid_->setColumnWidth(column, grid_->columnWidth(column) * 4 / 3);
  }
  grid_->horizontalHeader()->setStretchLastSection(true);
}

void frmDisposalList::connectEvents() {
  on(cmdKP, &QPushButton::clicked, [this] { pickBeside({}, {}); });
  on(cmdZC, &QPushButton::clicked, [this] { pickBeside({}, {}); });
  on(cmdTJ, &QPushButton::clicked, [this] { pickBeside(txtKPCode->text(), txtZCCode->text()); });
  on(cmdAdd, &QPushButton::clicked, [this] { add(pickCards(host(), "", ""), dayText(run().clock.now())); });
  on(cmdRemove, &QPushButton::clicked, &frmDisposalList::cmdRemove_Click);
  on(cmdOK, &QPushButton::clicked, [this] {
    editor_->commit();
    cmdOK_Click();
  });
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
  on(grid_, &QTableView::clicked, [this](const QModelIndex& cell) {
    beginEdit(static_cast<std::size_t>(cell.row()) + list().headerRows(),
              static_cast<std::size_t>(cell.column()));
  });
  on(grid_, &FlexGrid::rowOpened,
     [this](std::size_t row) { beginEdit(row, std::max(grid_->currentGridColumn().value_or(way), date)); });
  on(editor_, &CellEditor::buttonPressed, &frmDisposalList::cmdEdit_Click);
  on(editor_, &CellEditor::committed, &frmDisposalList::takeText);
}

void frmDisposalList::setList(TextGrid list) {
  grid_->setGrid(std::move(list));
  const bool empty = this->list().rows() <= this->list().headerRows();
  for (QPushButton* button : {cmdRemove, cmdOK}) button->setEnabled(!empty);
}

void frmDisposalList::add(const std::vector<PickedCard>& cards, const std::string& day) {
  if (cards.empty()) return;
  editor_->commit();
  TextGrid list = grid_->grid();
  addDisposals(list, cards, day);
  const std::size_t last = list.rows() - 1;
  setList(std::move(list));
  grid_->selectCell(last, way);
}

void frmDisposalList::pickBeside(const QString& cardNumber, const QString& assetNumber) {
  const auto cards = pickCards(host(), fromQt(cardNumber.trimmed()), fromQt(assetNumber.trimmed()));
  if (cards.empty()) return;
  txtKPCode->setText(toQt(cards.front().sCardNum));
  txtZCCode->setText(toQt(cards.front().sAssetNum));
  add(cards, "");
}

void frmDisposalList::cmdRemove_Click() {
  const auto current = grid_->currentGridRow();
  if (!current) return;
  editor_->cancel();
  TextGrid list = grid_->grid();
  list.removeRow(*current);
  setList(std::move(list));
  const std::size_t last = this->list().rows() - 1;
  if (last >= this->list().headerRows()) grid_->selectGridRow(std::min(*current, last));
}

void frmDisposalList::beginEdit(std::size_t row, std::size_t column) {
  if (column == date || column == way) {
    editor_->editWithButton(row, column);
    cmdEdit_Click(row, column);
  } else if (column == revenue || column == cost) {
    editor_->editText(row, column, amount_);
  } else if (column == reason) {
    editor_->editText(row, column);
  }
}

/// The editor shows what was picked and ends with it.
void frmDisposalList::cmdEdit_Click(std::size_t row, std::size_t column) {
  std::optional<std::string> picked;
  if (column == way) {
    if (const auto entry = pickUseStatus(host(), StatusPick::Reductions)) {
      pickedWay_ = entry->code;
      picked = entry->name;
    }
  } else {
    const auto shown = parseDate(list().text(row, column));
    if (const auto day = askForDate(host(), shown.value_or(run().clock.now()))) picked = dayText(*day);
  }
  editor_->cancel();
  if (picked) setCell(row, column, *picked);
}

void frmDisposalList::takeText(std::size_t row, std::size_t column, const QString& text) {
  setCell(row, column, fromQt(text.trimmed()));
}

/// The next cell of the asset comes up, for who works by keys.
void frmDisposalList::setCell(std::size_t row, std::size_t column, const std::string& text) {
  grid_->setText(row, column, text);
  if (column < reason) grid_->selectCell(row, column + 1);
}

}  // namespace zelkor
