#include <utility>

#include "changes/BalanceSheet.h"
#include "store/engine/Statement.h"
#include "year/YearBooks.h"

// The sheets.
namespace zelkor::test {

void YearBooks::tell(const SheetResult& result) {
  if (result.outcome == SheetResult::Outcome::Nothing) dialogs_.note("nothing saved");
  if (result.box) dialogs_.MsgBox(*result.box);
}

std::optional<ChangeSheet> YearBooks::sheetFor(ChangeSheets& sheets, const std::string& number,
                                               const std::string& reason) {
  ChangeSheet sheet = sheets.newSheet();
  const SheetResult loaded = sheets.loadCard(CardKey::CardNumber, number, sheet);
  if (!loaded.done()) return tell(loaded), std::nullopt;
  sheet.reason = reason;
  return sheet;
}

std::optional<ChangeSheet> YearBooks::pickedFor(ChangeSheets& sheets, const std::string& number) {
  ChangeSheet sheet = sheets.newSheet();
  for (const auto& cells : textsOf(sheets.cardList())) {
    if (cells[0] != number) continue;
    const SheetResult picked = sheets.pickCard(cells, sheet);
    if (!picked.done()) return tell(picked), std::nullopt;
    sheet.reason = "调拨";
    return sheet;
  }
  dialogs_.note("not in the list: " + number);
  return std::nullopt;
}

void YearBooks::saveSheet(ChangeSheets& sheets, const ChangeSheet& sheet) {
  dialogs_.note(sql("sheet ", sheet.number, " ", captionOf(sheets.kind()), " ", sheet.cardNum, ": ",
                    sheet.before.text, " > ", sheet.after.text));
  tell(sheets.save(sheet));
}

void YearBooks::changeValue(const std::string& number, const std::string& increase) {
  ChangeSheets sheets(context_, ChangeKind::OriginalValue);
  auto sheet = sheetFor(sheets, number, "改良支出");
  if (!sheet) return;
  sheet->increase = increase;
  sheet->recomputeValues();
  saveSheet(sheets, *sheet);
}

void YearBooks::changeStatus(const std::string& number, const std::string& id, const std::string& name) {
  ChangeSheets sheets(context_, ChangeKind::UsageStatus);
  auto sheet = sheetFor(sheets, number, "停用");
  if (!sheet) return;
  sheet->after = {name, id};
  saveSheet(sheets, *sheet);
}

void YearBooks::changeAccumulated(const std::string& number, const std::string& after) {
  ChangeSheets sheets(context_, ChangeKind::AccumulatedDepr);
  auto sheet = sheetFor(sheets, number, "复核");
  if (!sheet) return;
  sheet->after.text = after;
  saveSheet(sheets, *sheet);
}

void YearBooks::changeLife(const std::string& number, const std::string& after) {
  ChangeSheets sheets(context_, ChangeKind::UsefulLife);
  auto sheet = sheetFor(sheets, number, "复核");
  if (!sheet) return;
  sheet->after.text = after;
  saveSheet(sheets, *sheet);
}

void YearBooks::changeResidual(const std::string& number) {
  ChangeSheets sheets(context_, ChangeKind::ResidualValue);
  if (const auto sheet = sheetFor(sheets, number, "复核")) saveSheet(sheets, *sheet);
}

void YearBooks::transfer(const std::string& number, const std::string& code, const std::string& name) {
  ChangeSheets sheets(context_, ChangeKind::Transfer);
  auto sheet = pickedFor(sheets, number);
  if (!sheet) return;
  sheet->chooseDepartment(code, name);
  saveSheet(sheets, *sheet);
}

void YearBooks::splitBetween(const std::string& number, const DepartSplit& split) {
  ChangeSheets sheets(context_, ChangeKind::Transfer);
  auto sheet = pickedFor(sheets, number);
  if (!sheet) return;
  sheet->chooseSplit(split);
  saveSheet(sheets, *sheet);
}

void YearBooks::changeMethod(const std::string& number, const std::string& id, const std::string& name) {
  ClsBLLBalance balance(context_);
  balance.setZkDataPath(context_.gstrZtFile);
  BalanceSheet sheet = newBalanceSheet(balance, context_.gdOpDate, context_.gstrUser);
  if (!loadBalanceCard(db(), number, sheet)) return dialogs_.note("no card: " + number);
  sheet.methodAfter = name;
  sheet.methodAfterID = id;
  sheet.reason = "复核";
  dialogs_.note(sql("sheet ", sheet.number, " ", kBalanceCaption, " ", number, ": ", sheet.methodBefore,
                    " > ", sheet.methodAfter));
  const auto refusal = balanceRefusal(sheet);
  const auto question = refusal ? refusal : balanceQuestion(sheet);
  if (question && (dialogs_.MsgBox(*question) != Answer::Yes)) return;
  dialogs_.MsgBox(saveBalance(balance, sheet).box);
}

}  // namespace zelkor::test
