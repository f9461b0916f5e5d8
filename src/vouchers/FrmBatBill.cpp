#include "vouchers/FrmBatBill.h"

#include <algorithm>
#include <QHeaderView>
#include <QShortcut>

#include "base/Text.h"
#include "ui/Layout.h"
#include "vouchers/ErrorTrap.h"
#include "vouchers/frmPZCode.h"
#include "vouchers/frmPZFill.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kSelectionTab = 0;
constexpr int kLinesTab = 1;
constexpr int kUsedWidth = 150;

/// The commands that the second tab has besides those of the first.
constexpr const char* kMoves[] = {"首张", "上张", "下张", "末张"};

}  // namespace

FrmBatBill::FrmBatBill(FormHost& host)
    : Form(host, "FrmBatBill", "批量制单", Unload::EndsProgram), billing_(run()) {
  arrangeControls();
  MSFlexGridSZ->horizontalHeader()->setStretchLastSection(true);
  showLists();
  SSTab1_Click();
  connectEvents();
  if (billing_.selection().rows() > 1) MSFlexGridXZ->selectCell(1, selection_column::Date);
  MSFlexGridXZ->setFocus();
}

void FrmBatBill::arrangeControls() {
  arrangeCommands();
  mergeInput_->nameControls("TxtInput", "");
  subjectInput_->nameControls("TxtInput", "CmdKM");
  Label1->setBuddy(ComboHBH);
  Label2->setBuddy(ListUsed);
  ListUsed->setFixedWidth(kUsedWidth);
  ListUsed->setFocusPolicy(Qt::NoFocus);
  ComboHBH->setMinimumWidth(200);
  fillTabs(*SSTab1,
           {{"业务选择",
             column({row({wide(MSFlexGridXZ), column({Label2, wide(ListUsed)})}),
                     row({wide(note("双击或回车 选择业务　单击合并号或按 F2 填写合并号")), LblChosen})})},
            {"凭证分录", column({row({Label1, ComboHBH, space(24), CheckHB, stretch()}), wide(MSFlexGridSZ),
                                 note("单击科目、回车或按 F2 填写科目　再按 F2 参照")})}});
  arrangeScreen(this, Toolbar1, row({wide(SSTab1)}));
  resize(1080, 600);
}

void FrmBatBill::arrangeCommands() {
  setCommands(Toolbar1,
              {{"全选", &FrmBatBill::markAll},
               {"全消", &FrmBatBill::unmarkAll},
               {"删除"},
               {},
               {"保存", [this] { save(); }},
               {"制单", &FrmBatBill::makeVoucher},
               {},
               {"首张"},
               {"上张"},
               {"下张"},
               {"末张"},
               {},
               {"退出", &FrmBatBill::close}},
              [this] { endTyping(); });
}

void FrmBatBill::connectEvents() {
  on(SSTab1, &QTabWidget::currentChanged, [this] { SSTab1_Click(); });
  on(MSFlexGridXZ, &FlexGrid::clicked, [this] { MSFlexGridXZ_Click(); });
  on(MSFlexGridXZ, &FlexGrid::rowOpened, [this](std::size_t row) {
    billing_.toggleMark(row);
    showMarks();
  });
  mergeInput_->setColumns({selection_column::MergeNumber});
  on(mergeInput_, &CellEditor::requested, [this](std::size_t row, std::size_t) { editMergeNumber(row); });
  on(mergeInput_, &CellEditor::entered,
     [this](std::size_t row, std::size_t column) { mergeInput_->goOn(row, column); });
  on(mergeInput_, &CellEditor::committed, &FrmBatBill::takeMergeNumber);
  on(MSFlexGridSZ, &FlexGrid::clicked, [this] {
    if (MSFlexGridSZ->currentGridColumn() == line_column::Subject) {
      editSubject(MSFlexGridSZ->currentGridRow().value());
    }
  });
  on(MSFlexGridSZ, &FlexGrid::rowOpened, &FrmBatBill::editSubject);
  subjectInput_->setColumns({line_column::Subject});
  on(subjectInput_, &CellEditor::requested, [this](std::size_t row, std::size_t) { editSubject(row); });
  on(subjectInput_, &CellEditor::committed, &FrmBatBill::takeSubject);
  on(subjectInput_, &CellEditor::entered, [this](std::size_t row, std::size_t) { goOnBehind(row); });
  on(subjectInput_, &CellEditor::buttonPressed, [this](std::size_t row, std::size_t) { CmdKM_Click(row); });
  on(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, &FrmBatBill::refresh);
}

/// A command takes what is shown: what is being typed, too.
void FrmBatBill::endTyping() {
  mergeInput_->commit();
  subjectInput_->commit();
  billing_.CheckHB = CheckHB->isChecked();
}

void FrmBatBill::markAll() {
  billing_.markAll();
  showMarks();
}

void FrmBatBill::unmarkAll() {
  billing_.unmarkAll();
  showMarks();
}

/// A line that lacks its subject comes up for it.
bool FrmBatBill::save() {
  if (billing_.ToolSave()) return true;
  const TextGrid& lines = billing_.lines();
  for (std::size_t row = 1; row < lines.rows() && SSTab1->currentIndex() == kLinesTab; ++row) {
    if (!Trim(lines.text(row, line_column::Subject)).empty()) continue;
    editSubject(row);
    break;
  }
  return false;
}

void FrmBatBill::makeVoucher() {
  if (!save()) return;
  ToolPZ();
  SSTab1->setCurrentIndex(kSelectionTab);
  refresh();
  MSFlexGridXZ->setFocus();
  if (billing_.selection().rows() > 1) MSFlexGridXZ->selectCell(1, selection_column::Date);
}

void FrmBatBill::ToolPZ() {
  trapped(run(), "FrmBatBill ToolPZ", [this] { showVoucherWindow(host(), billing_.request()); });
}

/// Shows again what is staged and not on a voucher.
void FrmBatBill::refresh() {
  mergeInput_->cancel();
  billing_.refresh();
  showLists();
  if (SSTab1->currentIndex() == kLinesTab) SSTab1_Click();
}

void FrmBatBill::SSTab1_Click() {
  const bool lines = SSTab1->currentIndex() == kLinesTab;
  for (const char* move : kMoves) Toolbar1->button(move).setVisible(lines);
  const auto commands = Toolbar1->actions();
  commands[commands.indexOf(&Toolbar1->button(kMoves[0])) - 1]->setVisible(lines);  // the separator
  if (!lines) return;
  ComboHBH->clear();
  billing_.loadLines();
  if (!billing_.loadedText().empty()) ComboHBH->addItem(toQt(billing_.loadedText()));
  MSFlexGridSZ->setGrid(billing_.lines());
  MSFlexGridSZ->setFocus();
  if (billing_.lines().rows() > 1) MSFlexGridSZ->selectCell(1, line_column::Subject);
}

void FrmBatBill::showLists() {
  MSFlexGridXZ->setGrid(billing_.selection());
  MSFlexGridXZ->horizontalHeader()->setSectionResizeMode(selection_column::BillSign, QHeaderView::Stretch);
  MSFlexGridSZ->setGrid(billing_.lines());
  showMarks();
}

/// Marks and merge numbers are all that changes in the list.
void FrmBatBill::showMarks() {
  const TextGrid& list = billing_.selection();
  for (std::size_t row = 1; row < list.rows(); ++row) {
    for (const std::size_t column : {selection_column::MergeNumber, selection_column::Mark}) {
      const std::string& text = list.text(row, column);
      if (MSFlexGridXZ->grid().text(row, column) != text) MSFlexGridXZ->setText(row, column, text);
    }
  }
  ListUsed->clear();
  for (const std::string& number : billing_.usedMergeNumbers()) ListUsed->addItem(toQt(number));
  showCount();
}

void FrmBatBill::showCount() {
  LblChosen->setText(
      QString("共 %1 笔业务，已选 %2 笔").arg(billing_.selection().rows() - 1).arg(billing_.markedRows()));
}

void FrmBatBill::MSFlexGridXZ_Click() {
  if (MSFlexGridXZ->currentGridColumn() == selection_column::MergeNumber) {
    editMergeNumber(MSFlexGridXZ->currentGridRow().value());
  }
}

void FrmBatBill::editMergeNumber(std::size_t row) {
  if (row > 0) mergeInput_->editText(row, selection_column::MergeNumber);
}

void FrmBatBill::takeMergeNumber(std::size_t row, std::size_t /*column*/, const QString& number) {
  billing_.setMergeNumber(row, fromQt(number));
  showMarks();
}

/// The box begins with the code alone, which is what is typed.
void FrmBatBill::editSubject(std::size_t row) {
  refused_.reset();
  if (row >= billing_.lines().rows()) return;
  MSFlexGridSZ->selectCell(row, line_column::Subject);
  subjectInput_->editWithButton(row, line_column::Subject);
  subjectInput_->setText(toQt(billing_.lines().text(row, line_column::Subject)).section(' ', 0, 0));
}

void FrmBatBill::takeSubject(std::size_t row, std::size_t /*column*/, const QString& code) {
  if (code.isEmpty()) return;
  if (billing_.enterSubject(row, fromQt(code))) {
    MSFlexGridSZ->setText(row, line_column::Subject, billing_.lines().text(row, line_column::Subject));
  } else {
    refused_ = row;
  }
}

/// Enter leads to the next line; one whose subject was refused comes up again.
void FrmBatBill::goOnBehind(std::size_t row) {
  editSubject(refused_ == row ? row : row + 1);
}

void FrmBatBill::CmdKM_Click(std::size_t row) {
  frmPZCode picker(host());
  picker.showSubject(subjectInput_->text());
  host().showModal(picker);
  if (picker.picked().code.empty()) return;
  subjectInput_->setText(toQt(picker.picked().code));
  subjectInput_->commit();
  goOnBehind(row);
}

}  // namespace zelkor
