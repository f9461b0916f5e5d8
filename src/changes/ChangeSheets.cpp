#include "changes/ChangeSheets.h"

#include <exception>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "changes/CardDetailList.h"
#include "changes/RecentSheet.h"
#include "changes/SheetRules.h"
#include "store/accountset/OneTransaction.h"

namespace zelkor {
namespace {

using Outcome = SheetResult::Outcome;

// One title for every kind.
constexpr const char* kSavedTitle = "变动单－－使用状况调整";

SheetResult refused(MessageBox box) {
  return {Outcome::Refused, std::move(box)};
}

SheetResult failed(const RuntimeError& error) {
  return {.outcome = Outcome::Failed, .box = refusal(error.what()), .failure = error};
}

MessageBox savedBox() {
  return {"数据成功保存！", Buttons::Ok, Icon::Information, kSavedTitle};
}

/// Commits what the sheet has written, and with it what follows from the sheet, so that a cut leaves both or
/// neither. What follows cannot undo the sheet: it is kept when that fails.
void commit(Workspace& workspace, const SheetRules& rules, const SheetSaving& saving) {
  std::exception_ptr failure;
  try {
    if (rules.afterwards != nullptr) saving.group.runAll([&] { rules.afterwards(saving); });
  } catch (const RuntimeError&) {
    failure = std::current_exception();
  }
  workspace.CommitTrans();
  if (failure) std::rethrow_exception(failure);
}

const CardVersion& loaded(const std::optional<CardVersion>& card) {
  if (!card) throw RuntimeError(ErrorNumber::ObjectClosed);
  return *card;
}

}  // namespace

ChangeSheets::ChangeSheets(RunContext& context, ChangeKind kind)
    : context_(context), kind_(kind), database_(context.engine.OpenDatabase(context.gstrZtFile)) {}

ChangeSheet ChangeSheets::newSheet() {
  card_.reset();
  ChangeSheet sheet;
  sheet.number = nextSheetNumber(database_);
  sheet.date = shownDate(context_.gdOpDate);
  sheet.operatorName = context_.gstrUser;
  return sheet;
}

TextGrid ChangeSheets::cardList() {
  return cardDetailList(database_, kind_, context_.gdOpDate);
}

SheetResult ChangeSheets::loadCard(CardKey key, const std::string& number, ChangeSheet& sheet) {
  const SheetRules& rules = rulesOf(kind_);
  const CardSearch search{key == CardKey::CardNumber ? "sCardNum" : "sAssetNum", number, context_.gdOpDate};
  return load([&] { return rules.find(database_, search); },
              [&](const CardVersion& card, ChangeSheet& shown) { rules.show(database_, card, shown); },
              sheet);
}

SheetResult ChangeSheets::pickCard(const std::vector<std::string>& row, ChangeSheet& sheet) {
  const PickRules* pick = rulesOf(kind_).pick;
  if (pick == nullptr) return loadCard(CardKey::CardNumber, row.at(0), sheet);
  if (pick->check != nullptr) {
    if (auto box = pick->check(row, context_.clock.now())) return refused(std::move(*box));
  }
  const CardSearch search{"sCardNum", row.at(0), context_.gdOpDate};
  return load([&] { return pick->find(database_, search, row); },
              [&](const CardVersion& card, ChangeSheet& shown) { pick->show(database_, card, row, shown); },
              sheet);
}

SheetResult ChangeSheets::load(const FindVersion& find, const ShowVersion& show, ChangeSheet& sheet) {
  try {
    auto found = find();
    if (!found) return refused(refusal(kCardMissing));
    ChangeSheet filled = sheet;
    showCard(*found, filled);
    show(*found, filled);
    sheet = std::move(filled);
    card_ = std::move(found);
    return {};
  } catch (const RuntimeError& error) {
    return failed(error);
  }
}

// The transaction begins before the checks: one that a check refuses stays open, and the next save runs in
// it.
SheetResult ChangeSheets::save(const ChangeSheet& sheet) {
  const SheetRules& rules = rulesOf(kind_);
  if (rules.write == nullptr) return {Outcome::Nothing, std::nullopt};
  Workspace& workspace = context_.engine.workspace();
  SheetResult result;
  try {
    workspace.BeginTrans();
    if (auto box = rules.check(sheet)) return refused(std::move(*box));
    StatementGroup group(database_);
    const SheetSaving saving{context_, database_, sheet, loaded(card_), group};
    group.runAll([&] { rules.write(saving); });
    result.toolbarAsSaved = true;
    commit(workspace, rules, saving);
    card_.reset();
    result.box = savedBox();
  } catch (const RuntimeError& error) {
    rollBackIfOpen(workspace);  // after the commit there is nothing left to undo
    result.outcome = Outcome::Failed;
    result.box = refusal(error.what());
    result.failure = error;
  }
  return result;
}

std::optional<ChangeSheet> ChangeSheets::mostRecent() {
  return mostRecentSheet(database_, kind_, context_.gdOpDate);
}

}  // namespace zelkor
