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
  dressPick(cmdKP, txtKPCode);
  dressPick(cmdZC, txtZCCode);
  editor_->setColumns({date, way, revenue, cost, reason});
  arrange(this, column({row({lblKPCode, txtKPCode, cmdKP, space(16), lblZCCode, txtZCCode, cmdZC, space(16),
                             cmdTJ, stretch()}),
                        wide(grid_),
                        note("单击单元格或直接键入，填写减少日期、减少方式、清理收入、清理费用和清理原因；F2 "
                             "打开参照，回车键移到下一项。"),
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
    askForMissing();
  });
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
  on(grid_, &QTableView::clicked, [this](const QModelIndex& cell) {
    const auto row = static_cast<std::size_t>(cell.row()) + list().headerRows();
    const auto column = static_cast<std::size_t>(cell.column());
    beginEdit(row, column);
    if (column == date || column == way) cmdEdit_Click(row, column);
  });
  on(grid_, &FlexGrid::rowOpened,
     [this](std::size_t row) { beginEdit(row, std::max(grid_->currentGridColumn().value_or(way), date)); });
  on(editor_, &CellEditor::requested, &frmDisposalList::beginEdit);
  on(editor_, &CellEditor::entered,
     [this](std::size_t row, std::size_t column) { editor_->goOn(row, column); });
  on(editor_, &CellEditor::seeking, [this](const QString& text) { host().seek(text); });
  on(editor_, &CellEditor::buttonPressed, &frmDisposalList::cmdEdit_Click);
  on(editor_, &CellEditor::committed, &frmDisposalList::takeText);
}

void frmDisposalList::setList(TextGrid list) {
  grid_->setGrid(std::move(list));
  for (QPushButton* button : {cmdRemove, cmdOK}) button->setEnabled(!isEmpty());
}

bool frmDisposalList::isEmpty() const {
  return list().rows() <= list().headerRows();
}

void frmDisposalList::add(const std::vector<PickedCard>& cards, const std::string& day) {
  if (cards.empty()) return;
  editor_->commit();
  TextGrid list = grid_->grid();
  const std::size_t added = list.rows();
  addDisposals(list, cards, day);
  const std::size_t row = std::min(added, list.rows() - 1);
  setList(std::move(list));
  beginEdit(row, way);
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
  if (isEmpty()) return cmdAdd->setFocus();
  grid_->selectGridRow(std::min(*current, last));
  grid_->setFocus();
}

/// What was said about an asset can be filled in at once.
void frmDisposalList::askForMissing() {
  for (std::size_t row = list().headerRows(); row < list().rows(); ++row) {
    for (const std::size_t column : required()) {
      if (list().text(row, column).empty()) return beginEdit(row, column);
    }
  }
}

/// Not by a key alone where something would be lost.
void frmDisposalList::escapePressed() {
  if (!isEmpty() &&
      run().dialogs.MsgBox({"列表中的资产尚未减少，确实要退出吗？", Buttons::YesNo, Icon::Question,
                            "固定资产", DefaultButton::Second}) != Answer::Yes) {
    return;
  }
  close();
}

void frmDisposalList::beginEdit(std::size_t row, std::size_t column) {
  grid_->selectCell(row, column);
  if (column == date || column == way) {
    editor_->editPicked(row, column);
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
  if (!picked) return beginEdit(row, column);
  grid_->setText(row, column, *picked);
  editor_->goOn(row, column);
}

void frmDisposalList::takeText(std::size_t row, std::size_t column, const QString& text) {
  grid_->setText(row, column, fromQt(text.trimmed()));
}

}  // namespace zelkor
