#include "changes/frmAssetsAlteration.h"

#include <algorithm>
#include <QFrame>

#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "changes/frmCardDetail.h"
#include "changes/frmDepart.h"
#include "changes/frmMoreDep.h"
#include "changes/UsefulLife.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

bool hasPicker(SheetEntry entry) {
  return entry == SheetEntry::CardNumber || entry == SheetEntry::AssetNumber || entry == SheetEntry::Picked;
}

}  // namespace

frmAssetsAlteration::frmAssetsAlteration(FormHost& host, ChangeKind kind)
    : SheetForm(host, "frmAssetsAlteration", "txtContent"), sheets_(host.run(), kind), panel_(panelOf(kind)) {
  setCommands(tbToolBar, {{"增加", &frmAssetsAlteration::add, &frmAssetsAlteration::stored},
                          {},
                          {"取消", &frmAssetsAlteration::cancel, &frmAssetsAlteration::entering},
                          {"保存", &frmAssetsAlteration::save, &frmAssetsAlteration::entering},
                          {},
                          {"退出", &frmAssetsAlteration::close}});
  arrangeControls();
  on(editor, &SheetEditor::committed, &frmAssetsAlteration::txtContent_Commit);
  add();
}

/// Makes the labels of a part of the panel, with what is needed to fill them in.
std::vector<SheetCell> frmAssetsAlteration::placeLabels(const std::vector<SheetLabel>& specs) {
  std::vector<SheetCell> cells;
  for (const SheetLabel& spec : specs) {
    auto* label = placeValue("Label1" + std::to_string(spec.number),
                             spec.isAmount ? SheetValue::Amount : SheetValue::Text);
    places_.push_back({&spec, label});
    if (spec.entry != SheetEntry::Shown) addEntry(spec, label);
    cells.push_back({spec.caption, label, spec.wholeLine});
  }
  return cells;
}

void frmAssetsAlteration::addEntry(const SheetLabel& spec, QLabel* label) {
  QPushButton* button = nullptr;
  if (hasPicker(spec.entry)) {
    button = placeButton(label, "cmdMobile" + std::to_string(spec.number),
                         [this, &spec, label] { cmdMobile_Click(spec, label); });
  }
  editor->add(label, button,
              spec.entry == SheetEntry::Picked ? SheetEditor::Entry::Picked : SheetEditor::Entry::Typed,
              inputOf(spec));
}

/// What the runtime would refuse cannot be typed. A new life begins with the one before.
SheetInput frmAssetsAlteration::inputOf(const SheetLabel& spec) {
  if (spec.entry == SheetEntry::Life) {
    const auto before = [this] {
      return toQt(completedLife(sheet_.before.text.empty() ? "0" : sheet_.before.text));
    };
    return {.limit = life_, .offered = before, .unit = "年"};
  }
  return {.limit = spec.isAmount ? amount_ : nullptr};
}

void frmAssetsAlteration::arrangeControls() {
  const auto head = placeLabels(panel_.head);
  const auto table = placeLabels(panel_.table);
  const auto foot = placeLabels(panel_.foot);
  QFrame* paper = arrangeSheet(toQt(captionOf(sheets_.kind())), head, table, foot);
  paper->setObjectName("Picture1" + QString::number(panel_.picture));
}

void frmAssetsAlteration::enterMode(Mode mode) {
  mode_ = mode;
  enableCommands();
  editor->setActive(entering());
}

void frmAssetsAlteration::showSheet() {
  for (const Place& place : places_) showOnSheet(place.label, toQt(place.spec->text(sheet_)));
}

void frmAssetsAlteration::add() {
  sheet_ = sheets_.newSheet();
  showSheet();
  enterMode(Mode::Entering);
  editor->begin();
}

/// A command of the toolbar does not take the focus: a value that is being typed has not been left. It is
/// opened again when nothing has been saved, or the first one that is missing.
void frmAssetsAlteration::save() {
  const bool typing = editor->isOpen();
  typedIsRefused_ = false;
  editor->commit();
  if (!typedIsRefused_) {
    const SheetResult result = sheets_.save(sheet_);
    if (result.toolbarAsSaved) enterMode(Mode::Stored);
    tell(result);
    if (result.box && !result.toolbarAsSaved && editor->openFirstEmpty()) return;
  }
  if (typing) editor->resume();
}

void frmAssetsAlteration::cancel() {
  const Answer answer = run().dialogs.MsgBox("是否取消本次操作？", Buttons::YesNo, Icon::Question, kTitle);
  if (answer != Answer::Yes) return;
  enterMode(Mode::Stored);
  sheet_ = sheets_.mostRecent().value_or(ChangeSheet{});
  showSheet();
}

/// Shows the box of a step, if it has one; true when the step was done.
bool frmAssetsAlteration::tell(const SheetResult& result) {
  if (result.box) run().dialogs.MsgBox(*result.box);
  return result.done();
}

void frmAssetsAlteration::txtContent_Commit(const QLabel* value, const QString& text) {
  const auto& [spec, label] = *std::ranges::find(places_, value, &Place::label);
  const std::string typed = fromQt(text);
  if (spec->entry == SheetEntry::CardNumber) return loadTyped(label, CardKey::CardNumber, typed);
  if (spec->entry == SheetEntry::AssetNumber) return loadTyped(label, CardKey::AssetNumber, typed);
  spec->text(sheet_) = spec->entry == SheetEntry::Life ? completedLife(typed) : typed;
  if (spec->entry == SheetEntry::Increase) sheet_.recomputeValues();
  showSheet();
}

void frmAssetsAlteration::loadTyped(QLabel* label, CardKey key, const std::string& number) {
  typedIsRefused_ = !tell(sheets_.loadCard(key, number, sheet_));
  showSheet();
  if (typedIsRefused_) editor->offerAgain(toQt(number));
  editor->goOnAt(typedIsRefused_ ? label : firstOwnEntry());
}

/// The first value to fill in once the card is there.
QLabel* frmAssetsAlteration::firstOwnEntry() const {
  const auto place = std::ranges::find_if(
      places_, [](const Place& each) { return each.spec->entry > SheetEntry::AssetNumber; });
  return place->label;
}

void frmAssetsAlteration::cmdMobile_Click(const SheetLabel& spec, QLabel* label) {
  editor->cancel();
  const bool picksCard = spec.entry != SheetEntry::Picked;
  const bool picked = picksCard ? pickCard() : pickAfter();
  showSheet();
  if (picked && !picksCard) return editor->openBehind(label);
  editor->open(picked ? firstOwnEntry() : label);
}

/// True when another card has come onto the sheet.
bool frmAssetsAlteration::pickCard() {
  frmCardDetail picker(host(), sheets_.cardList());
  host().showModal(picker);
  return picker.picked() && tell(sheets_.pickCard(*picker.picked(), sheet_));
}

/// True when something was picked.
bool frmAssetsAlteration::pickAfter() {
  if (sheets_.kind() == ChangeKind::Transfer) return pickDepartments();
  const auto status = pickUseStatus(host(), StatusPick::Statuses);
  if (status) sheet_.after = {status->name, status->code};
  return status.has_value();
}

bool frmAssetsAlteration::pickDepartments() {
  frmMoreDep question(host());
  host().showModal(question);
  if (question.chosen() == frmMoreDep::OneDepartment) {
    const auto department = pickDepartment(host());
    if (department) sheet_.chooseDepartment(department->code, department->name);
    return department.has_value();
  }
  if (question.chosen() != frmMoreDep::SeveralDepartments) return false;
  frmDepart picker(host());
  host().showModal(picker);
  if (!picker.split().empty()) sheet_.chooseSplit(picker.split());
  return !picker.split().empty();
}

}  // namespace zelkor
