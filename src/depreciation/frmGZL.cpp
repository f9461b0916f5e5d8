#include "depreciation/frmGZL.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLocale>

#include "base/Format.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr std::size_t kHeaderRows = 1;
constexpr std::size_t kWorkColumn = 2;
constexpr std::size_t kAccumulatedColumn = 3;

/// Numbers with a point and nothing else, whatever the workplace's locale.
QLocale plainNumbers() {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::RejectGroupSeparator);
  return locale;
}

std::string amount(double value) {
  return Format(value, "0.00");
}

}  // namespace

frmGZL::frmGZL(FormHost& host) : Form(host, "frmGZL", "工作量输入", Unload::Plain) {
  arrangeControls();
  positive_->setNotation(QDoubleValidator::StandardNotation);
  positive_->setLocale(plainNumbers());
  load();
  on(grdGZL, &FlexGrid::rowSelected, &frmGZL::showCard);
  on(grdGZL, &FlexGrid::rowOpened, &frmGZL::beginEdit);
  editor_->setColumns({kWorkColumn});
  on(editor_, &CellEditor::requested, [this](std::size_t row, std::size_t) { beginEdit(row); });
  on(editor_, &CellEditor::entered,
     [this](std::size_t row, std::size_t column) { editor_->goOn(row, column); });
  on(editor_, &CellEditor::passedEnd, [this] { cmdOK->setFocus(); });
  on(editor_, &CellEditor::committed,
     [this](std::size_t row, std::size_t, const QString& text) { takeWork(row, text); });
  on(cmdOK, &QPushButton::clicked, &frmGZL::cmdOK_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
  if (!cards_.empty()) grdGZL->selectCell(kHeaderRows, kWorkColumn);
  grdGZL->setFocus();
}

void frmGZL::arrangeControls() {
  for (QLineEdit* field : {txtTotal, txtLJ, txtDW}) field->setReadOnly(true);
  for (QLineEdit* field : {txtTotal, txtLJ}) field->setAlignment(Qt::AlignRight);
  grdGZL->horizontalHeader()->setStretchLastSection(true);
  arrange(this, column({lblMonth, wide(grdGZL),
                        fields({{"工作总量", txtTotal, "lblTotal"},
                                {"累计工作量", txtLJ, "lblLJ"},
                                {"工作量单位", txtDW, "lblDW"}},
                               3),
                        row({wide(note("直接键入本月工作量，回车键移到下一张卡片。")), cmdOK, cmdCancel})}));
  resize(720, 460);
}

void frmGZL::load() {
  lblMonth->setText(
      QString("会计期间：%1.%2").arg(run().gdOpDate.year()).arg(run().period(), 2, 10, QChar('0')));
  cards_ = workloadCards(data(), run().period());
  TextGrid grid;
  grid.setHeader("卡片编号|资产名称|本月工作量|累计工作量|单位");
  static constexpr int kWidths[] = {1300, 3200, 1800, 1800, 1100};
  for (std::size_t i = 0; i < std::size(kWidths); ++i) grid.setColumnWidth(i, kWidths[i]);
  for (const std::size_t column : {kWorkColumn, kAccumulatedColumn}) grid.setAlignment(column, Align::Right);
  for (const CardWorkload& card : cards_) {
    grid.addRow(
        {card.cardNum, card.assetName, amount(card.work), amount(card.before + card.work), card.unit});
  }
  grdGZL->setGrid(std::move(grid));
}

void frmGZL::showCard(std::size_t row) {
  const CardWorkload& card = cards_.at(row - kHeaderRows);
  txtTotal->setText(toQt(amount(card.total)));
  txtLJ->setText(toQt(amount(card.before + card.work)));
  txtDW->setText(toQt(card.unit));
}

void frmGZL::beginEdit(std::size_t row) {
  editor_->editText(row, kWorkColumn, positive_);
}

void frmGZL::takeWork(std::size_t row, const QString& text) {
  const auto work = workOf(fromQt(text));
  if (!work) return;
  CardWorkload& card = cards_.at(row - kHeaderRows);
  card.work = *work;
  changed_.insert(row - kHeaderRows);
  grdGZL->setText(row, kWorkColumn, amount(card.work));
  grdGZL->setText(row, kAccumulatedColumn, amount(card.before + card.work));
  showCard(row);
}

void frmGZL::cmdOK_Click() {
  editor_->commit();
  for (const std::size_t place : changed_) {
    const CardWorkload& card = cards_.at(place);
    storeWorkload(data(), card.cardNum, run().period(), card.work, card.before + card.work);
  }
  close();
}

}  // namespace zelkor
