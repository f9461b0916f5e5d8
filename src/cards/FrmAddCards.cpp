#include "cards/FrmAddCards.h"

#include <algorithm>
#include <QAction>
#include <QKeyEvent>

#include "archives/FrmFATypes.h"
#include "cards/CardEditing.h"
#include "ui/Focus.h"
#include "vouchers/frmPZCode1.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

/// True for a key that types something else than digits and the point.
bool isOtherThanFigures(const QString& typed) {
  return !typed.isEmpty() && typed[0].isPrint() && !typed[0].isDigit() && typed[0] != '.';
}

}  // namespace

FrmAddCards::FrmAddCards(FormHost& host, const ScreenProperties& properties)
    : Form(host, "FrmAddCards", "固定资产卡片", Unload::Plain),
      bView_(properties.bView),
      cardID_(properties.CardID),
      assetTypeID_(properties.AssetTypeID) {
  cards_.setZkDataPath(opArgs().ZkDataPath());
  sheet_.mode = static_cast<CardMode>(properties.frmType);
  arrangeControls();
  connectEvents();
  SSTab1_Click();
  const bool isNew = sheet_.isNew();
  for (const char* key : {"保存", "取消"}) Toolbar1->enable(key, isNew && !bView_);
  for (const char* key : {"修改", "删除"}) Toolbar1->enable(key, !isNew && !bView_);
  if (isNew) {
    startNewCard();
  } else {
    showCard(cardID_, CardLayout::Ordinary);
  }
}

void FrmAddCards::connectEvents() {
  on(SSTab1, &QTabBar::currentChanged, [this] {
    SSTab1_Click();
    unfold(true);
  });
  onLeaving(TxtEdit, &FrmAddCards::leaveField);
}

void FrmAddCards::startNewCard() {
  sheet_ = newCard(cards_, opArgs(), sheet_.mode, assetTypeID_);
  layOut();
  showSheet();
  openField(CardField::AssetName, Arrival::ByKeyboard);
}

/// Shows a version; of one whose category is gone an empty card in that layout.
void FrmAddCards::showCard(const std::string& cardID, CardLayout layout) {
  closeEditor();
  cardID_ = cardID;
  CardSheet empty;
  empty.layout = layout;
  sheet_ = storedCard(cards_, cardID).value_or(empty);
  current_.reset();
  PicCard->setCurrent(current_);
  layOut();
  showSheet();
}

void FrmAddCards::showSheet() {
  for (const CardFieldPlace& place : PicCard->places()) {
    QLabel* label = LblValue[static_cast<std::size_t>(place.field)];
    const QString text = toQt(sheet_.texts[place.field]);
    label->setText(text);
    const bool fits = label->fontMetrics().horizontalAdvance(text) <= label->contentsRect().width();
    label->setToolTip(fits ? QString() : text);
  }
}

void FrmAddCards::refuse(const std::string& message) {
  run().dialogs.MsgBox(message, Buttons::Ok, Icon::Exclamation, kTitle);
}

void FrmAddCards::openField(CardField field, Arrival arrival) {
  if (bView_ || !leaveField()) return;
  const CardFieldPlace* place = PicCard->find(field);
  if (!place || !cardField(field).enabled()) return;
  current_ = field;
  PicCard->setCurrent(current_);
  if (cardField(field).hasReference()) {
    PicCard->setFocus();
  } else {
    openEditor(*place, arrival);
  }
}

bool FrmAddCards::leaveField() {
  if (!editing_ || leaving_) return !editing_;
  const QString text = TxtEdit->text();
  if (arrival_ == Arrival::ByKeyboard && text == before_) {
    giveUpEdit();
    return true;
  }
  leaving_ = true;
  const FieldEntry entry = enterField(sheet_, *current_, fromQt(text), opArgs().OpDate());
  if (entry.accepted) closeEditor();
  showSheet();
  if (!entry.accepted) {
    TxtEdit->setText(toQt(entry.boxText));
    if (!entry.message.empty()) refuse(entry.message);
    TxtEdit->setFocus();
    TxtEdit->selectAll();
  }
  leaving_ = false;
  return entry.accepted;
}

/// The paper takes the focus first: hiding the editor would hand it to the next control.
void FrmAddCards::closeEditor() {
  editing_ = false;
  if (TxtEdit->hasFocus()) PicCard->setFocus();
  TxtEdit->hide();
}

/// Takes back what a refused text has changed in other fields.
void FrmAddCards::giveUpEdit() {
  sheet_ = untouched_;
  closeEditor();
  showSheet();
}

/// Goes on to the next field to fill in, behind the last one to the lists below the card.
void FrmAddCards::moveField(int step) {
  if (!leaveField()) return;
  const auto at = current_ ? std::ranges::find(order_, *current_) : order_.end();
  const auto last = std::ssize(order_) - 1;
  auto next = at == order_.end() ? (step > 0 ? 0 : last) : at - order_.begin() + step;
  if (next > last) {
    current_.reset();
    PicCard->setCurrent(current_);
    SSTab1->setFocus();
    return;
  }
  if (next < 0) next = last;
  openField(order_[static_cast<std::size_t>(next)], Arrival::ByKeyboard);
}

void FrmAddCards::pick(CardField field) {
  if (bView_ || !PicCard->find(field) || !leaveField()) return;
  openField(field, Arrival::ByKeyboard);
  const CardFieldRow& row = cardField(field);
  const bool picked =
      row.archive ? pickEntry(field, *row.archive) : row.input == CardInput::Subject && pickSubject(field);
  if (picked) moveField(1);
}

/// True when something was picked, also below.
bool FrmAddCards::pickEntry(CardField field, ArchiveKind kind) {
  const bool isCategory = kind == ArchiveKind::AssetTypes;
  const auto picked =
      pickFromArchive(host(), kind, isCategory ? sheet_.texts[CardField::CategoryCode] : sheet_.codes[field]);
  if (!picked) return false;
  if (isCategory) {
    assetTypeID_ = picked->value;
    takeCategory(sheet_, cards_, assetTypeID_);
  } else {
    takeEntry(sheet_, field, picked->value, picked->name);
  }
  layOut();
  showSheet();
  return true;
}

bool FrmAddCards::pickSubject(CardField field) {
  frmPZCode1 picker(host());
  picker.setZKDatabase(data());
  host().showModal(picker);
  const std::string& code = picker.AccountCode();
  if (code.empty()) return false;
  if (!isDetailSubject(data(), code)) {
    refuse(subjectRefusal(code));
    return false;
  }
  sheet_.texts[field] = code + "," + picker.AccountContent();
  showSheet();
  return true;
}

void FrmAddCards::change() {
  for (const char* name : {"取消", "保存"}) Toolbar1->enable(name, true);
}

void FrmAddCards::edit() {
  const QWidget* button = Toolbar1->widgetForAction(&Toolbar1->button("编辑"));
  mnuPop->popup(button->mapToGlobal(QPoint(0, button->height())));
}

void FrmAddCards::save() {
  if (!leaveField()) return;
  const CardSaved result = saveCard(sheet_, cards_, cardID_, opArgs().OpDate().month());
  showSheet();
  if (!result.missing.empty()) {
    refuse(missingFieldsText(result.missing));
    return openField(result.missing.front(), Arrival::ByKeyboard);
  }
  if (!result.saved) return;
  run().dialogs.MsgBox("固定资产卡片已正确保存！", Buttons::Ok, Icon::Information, kTitle);
  if (sheet_.isNew()) startNewCard();
}

void FrmAddCards::cancel() {
  const Answer answer = run().dialogs.MsgBox("是否取消本次操作？", Buttons::OkCancel, Icon::Question, kTitle);
  if (answer != Answer::Ok) return;
  Toolbar1->enable("取消", false);
  for (const char* key : {"修改", "删除"}) Toolbar1->enable(key, true);
  showLast();
}

/// Deletes nothing: cards are deleted in their list.
void FrmAddCards::remove() {
  const Answer answer =
      run().dialogs.MsgBox("确定要删除当前所选记录吗？", Buttons::OkCancel, Icon::Question, kTitle);
  if (answer != Answer::Ok) return;
  for (const char* key : {"取消", "保存"}) Toolbar1->enable(key, false);
  for (const char* key : {"修改", "删除"}) Toolbar1->enable(key, true);
  showLast();
}

std::optional<FrmAddCards::Reached> FrmAddCards::reach(CardMove move) {
  std::string methodID;
  std::string cardID = cards_.GetAssetCard(cardID_, move, methodID);
  if (!cardID.empty()) return Reached{cardID, cardLayoutOfMethod(cards_.GetDeprMethodName(methodID))};
  refuse("没有任何固定卡片！");
  return std::nullopt;
}

/// Shows the last card anew, also when it is the current one: what was typed into it is to go.
void FrmAddCards::showLast() {
  if (const auto last = reach(CardMove::Last)) showCard(last->cardID, last->layout);
}

void FrmAddCards::walk(CardMove move) {
  const auto reached = reach(move);
  if (reached && reached->cardID != cardID_) showCard(reached->cardID, reached->layout);
}

bool FrmAddCards::eventFilter(QObject* control, QEvent* event) {
  const auto type = event->type();
  bool taken = false;
  if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
    taken = labelPressed(control, type);
  } else if (type == QEvent::KeyPress && control == PicCard) {
    taken = openingKeyPressed(*static_cast<QKeyEvent*>(event));
  } else if (type == QEvent::KeyPress && control == TxtEdit) {
    taken = cardField(*current_).input == CardInput::Digits &&
            isOtherThanFigures(static_cast<QKeyEvent*>(event)->text());
  }
  return taken || Form::eventFilter(control, event);
}

/// A click on a value opens its editor, a second one on a reference its picker.
bool FrmAddCards::labelPressed(const QObject* label, QEvent::Type type) {
  const auto found = std::ranges::find(LblValue, label);
  if (found == LblValue.end()) return false;
  host().dispatch([&] {
    const auto pressed = static_cast<CardField>(found - LblValue.begin());
    openField(pressed, Arrival::ByClick);
    const CardFieldRow& row = cardField(pressed);
    if (type == QEvent::MouseButtonDblClick && row.enabled() && row.hasReference()) pick(pressed);
  });
  return true;
}

bool FrmAddCards::enterPressed(QObject* control) {
  if (control != TxtEdit && control != PicCard) return false;
  moveField(1);
  return true;
}

void FrmAddCards::escapePressed() {
  if (editing_) giveUpEdit();
}

/// F2 and Down open the current field, in the way that a field of its kind opens; a letter begins the text or
/// the search.
bool FrmAddCards::openingKeyPressed(const QKeyEvent& key) {
  const bool begins = writesText(key);
  if ((key.key() != Qt::Key_F2 && key.key() != Qt::Key_Down && !begins) || !current_) return false;
  const bool isReference = cardField(*current_).hasReference();
  host().dispatch([&] {
    if (!isReference) return openField(*current_, Arrival::ByKeyboard);
    if (begins) host().seek(key.text());
    pick(*current_);
    host().seek({});
  });
  if (begins && !isReference) QApplication::sendEvent(TxtEdit, const_cast<QKeyEvent*>(&key));
  return true;
}

bool FrmAddCards::focusNextPrevChild(bool next) {
  if (order_.empty()) return Form::focusNextPrevChild(next);
  host().dispatch([&] { moveField(next ? 1 : -1); });
  return true;
}

void showCardEditor(FormHost& host, ScreenProperties properties) {
  if (static_cast<CardMode>(properties.frmType) != CardMode::Stored) {
    const auto category = pickFromArchive(host, ArchiveKind::AssetTypes, properties.AssetTypeID);
    if (!category) return;
    properties.AssetTypeID = category->value;
  }
  host.show<FrmAddCards>(properties);
}

}  // namespace zelkor
