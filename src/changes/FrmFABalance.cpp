#include "changes/FrmFABalance.h"

#include "base/RuntimeError.h"
#include "cards/CardPickerList.h"
#include "cards/frmCards.h"
#include "changes/ChangeSheet.h"
#include "changes/FrmBalanType.h"
#include "ui/Layout.h"

namespace zelkor {

FrmFABalance::FrmFABalance(FormHost& host, const std::string& zkDataPath)
    : SheetForm(host, "FrmFABalance", "txtMobile"), balance_(host.run()) {
  balance_.setZkDataPath(zkDataPath);
  setCommands(
      tbToolBar,
      {{"增加", &FrmFABalance::add}, {}, {"保存", &FrmFABalance::save}, {}, {"退出", &FrmFABalance::close}});
  arrangeControls();
  addEntries();
  on(editor, &SheetEditor::committed, &FrmFABalance::txtMobile_Commit);
  editor->setActive(true);
  add();
}

void FrmFABalance::arrangeControls() {
  for (std::size_t i = 0; i < FieldCount; ++i) Text[i] = placeValue("Text" + std::to_string(i + 1));
  for (QLineEdit* hidden : {txtBFID, txtAFID, txtTemp}) hidden->hide();
  cmbType->addItem(kBalanceCaption);
  tbToolBar->addSeparator();
  tbToolBar->addWidget(cmbType);
  const std::array head{SheetCell{"变动单编号：", Text[Number]}, SheetCell{"变动日期：", Text[Date]}};
  const std::array table{SheetCell{"卡片编号", Text[CardNum]},
                         SheetCell{"固定资产编号", Text[AssetNum]},
                         SheetCell{"固定资产名称", Text[AssetName]},
                         SheetCell{"规格型号", Text[Style]},
                         SheetCell{"开始使用日期", Text[StartDate], true},
                         SheetCell{"变动前折旧方法", Text[MethodBefore]},
                         SheetCell{"变动后折旧方法", Text[MethodAfter]},
                         SheetCell{"变动原因", Text[Reason], true}};
  const std::array foot{SheetCell{"经手人：", Text[Operator]}};
  arrangeSheet(kBalanceCaption, head, table, foot);
}

void FrmFABalance::addEntries() {
  for (const Field field : {CardNum, AssetNum}) {
    auto* button = placeButton(Text[field], "cmdMobile" + std::to_string(field + 1),
                               [this, field] { cmdMobile_Click(field); });
    editor->add(Text[field], button,
                field == CardNum ? SheetEditor::Entry::Typed : SheetEditor::Entry::Picked);
  }
  auto* method = placeButton(Text[MethodAfter], "cmdMethod", [this] { cmdMethod_Click(); });
  editor->add(Text[MethodAfter], method, SheetEditor::Entry::Picked);
  editor->add(Text[Reason], nullptr, SheetEditor::Entry::Typed);
}

void FrmFABalance::showSheet() {
  const std::array<const std::string*, FieldCount> texts{
      &sheet_.number,      &sheet_.date,      &sheet_.cardNum,     &sheet_.assetNum,
      &sheet_.startDate,   &sheet_.assetName, &sheet_.style,       &sheet_.methodBefore,
      &sheet_.methodAfter, &sheet_.reason,    &sheet_.operatorName};
  for (std::size_t i = 0; i < FieldCount; ++i) showOnSheet(Text[i], toQt(*texts[i]));
  txtBFID->setText(toQt(sheet_.methodBeforeID));
  txtAFID->setText(toQt(sheet_.methodAfterID));
  txtTemp->setText(toQt(sheet_.operationNumber));
}

/// Prepares the next sheet.
void FrmFABalance::add() {
  editor->cancel();
  sheet_ = newBalanceSheet(balance_, run().gdOpDate, run().gstrUser);
  showSheet();
  editor->begin();
}

void FrmFABalance::txtMobile_Commit(const QLabel* value, const QString& text) {
  if (value == Text[Reason]) sheet_.reason = fromQt(text);
  if (value == Text[CardNum]) {
    typedIsRefused_ = !loadTyped(fromQt(text));
    if (typedIsRefused_) editor->offerAgain(text);
    editor->goOnAt(Text[typedIsRefused_ ? CardNum : MethodAfter]);
  }
  showSheet();
}

/// True when the card is there.
bool FrmFABalance::loadTyped(const std::string& cardNum) {
  std::string refusal = kCardMissing;
  try {
    if (loadBalanceCard(data(), cardNum, sheet_)) return true;
  } catch (const RuntimeError& error) {
    refusal = error.what();  // a number that breaks its statement
  }
  run().dialogs.MsgBox(refusal, Buttons::Ok, Icon::Exclamation, "固定资产");
  return false;
}

void FrmFABalance::cmdMobile_Click(Field field) {
  editor->cancel();
  frmCards picker(host());
  host().showModal(picker);
  const auto row = picker.moStrRow();
  if (row) {
    const TextGrid& cards = picker.mshTable();
    sheet_.cardNum = cards.text(*row, card_column::CardNum);
    sheet_.assetNum = cards.text(*row, card_column::AssetNum);
    sheet_.assetName = cards.text(*row, card_column::AssetName);
    sheet_.style = cards.text(*row, card_column::Style);
    sheet_.startDate = cards.text(*row, card_column::StartDate);
    sheet_.methodBefore = cards.text(*row, card_column::Method);
    sheet_.methodBeforeID = cards.text(*row, card_column::MethodID);
  }
  showSheet();
  editor->open(Text[row ? MethodAfter : field]);
}

void FrmFABalance::cmdMethod_Click() {
  editor->cancel();
  FrmBalanType picker(host());
  host().showModal(picker);
  const auto& method = picker.picked();
  if (method) {
    sheet_.methodAfter = method->name;
    sheet_.methodAfterID = method->code;
  }
  showSheet();
  editor->open(Text[method ? Reason : MethodAfter]);
}

/// A command of the toolbar does not take the focus: a value that is being typed has not been left. It is
/// opened again when nothing has been saved, or the first one that is missing.
void FrmFABalance::save() {
  const bool typing = editor->isOpen();
  typedIsRefused_ = false;
  editor->commit();
  if (!typedIsRefused_) {
    if (store()) return add();
    if (editor->openFirstEmpty()) return;
  }
  if (typing) editor->resume();
}

/// True when the sheet has been saved.
bool FrmFABalance::store() {
  if (const auto refusal = balanceRefusal(sheet_)) {
    run().dialogs.MsgBox(*refusal);
    return false;
  }
  const auto question = balanceQuestion(sheet_);
  if (question && run().dialogs.MsgBox(*question) != Answer::Yes) return false;
  const BalanceSaved result = saveBalance(balance_, sheet_);
  run().dialogs.MsgBox(result.box);
  return result.saved;
}

}  // namespace zelkor
