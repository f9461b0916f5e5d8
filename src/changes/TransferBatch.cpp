#include "changes/TransferBatch.h"

#include <algorithm>

#include "base/Text.h"
#include "cards/CardVersions.h"
#include "changes/CardDetailList.h"
#include "changes/RecentSheet.h"
#include "changes/TransferRows.h"
#include "store/accountset/OneTransaction.h"

namespace zelkor {
namespace {

/// What is read of a card that is to be transferred.
struct TransferFacts {
  std::optional<CardVersion> card;  // the version in force
  bool isInForce = false;
  std::string departments;  // names of those before
  std::string site;
  std::optional<std::string> problem;  // with the department after
  ChangeSheet chosen;                  // has the department after
};

void read(RunContext& context, StatementGroup& group, const SheetRow& row, TransferFacts& facts) {
  group.open(versionInForceOf(row.cardNum, context.gdOpDate), [&](const Recordset& versions) {
    if (versions.Eof()) return;
    facts.card = CardVersion(versions);
    const std::string codes = facts.card->text("sDeptNum");
    group.open(departmentsOf(codes), [&facts, codes](const Recordset& departments) {
      facts.departments = departmentNames(departments, codes);
    });
  });
  group.open(versionsOfCard(row.cardNum, context.gdOpDate),
             [&](const Recordset& versions) { facts.isInForce = areInForce(versions); });
  group.open(newestOfCard(row.cardNum), [&](const Recordset& newest) {
    if (!newest.Eof()) facts.site = newest.TextOrEmpty("sSite");
  });
  group.open(departmentOf(row.after), [&](const Recordset& department) {
    facts.problem = chooseDepartment(department, row.after, facts.chosen);
  });
}

std::optional<ReadyTransfer> ready(RunContext& context, const SheetRow& row, TransferFacts& facts) {
  const SheetRules& rules = transferRules();
  if (!facts.card || !facts.isInForce || facts.problem) return std::nullopt;
  if (rules.pick->check(transferListRow(*facts.card, facts.departments), context.clock.now()))
    return std::nullopt;
  ChangeSheet sheet = std::move(facts.chosen);
  sheet.date = shownDate(context.gdOpDate);
  sheet.operatorName = context.gstrUser;
  showCard(*facts.card, sheet);
  sheet.before = {facts.departments, facts.card->text("sDeptNum")};
  sheet.siteBefore = facts.site;
  sheet.siteAfter = row.siteAfter;
  sheet.reason = row.reason;
  if (rules.check(sheet)) return std::nullopt;
  return ReadyTransfer{std::move(sheet), std::move(*facts.card)};
}

/// Numbers them as if each had been saved before the next is numbered.
void number(Database& database, std::span<ReadyTransfer> transfers) {
  std::string last = lastSheetNumber(database);
  requireDigits(last);
  for (ReadyTransfer& transfer : transfers) {
    transfer.sheet.number = sheetNumberBehind(last);
    last = std::max(last, transfer.sheet.number);
  }
}

}  // namespace

// Signs that no engine takes for one another but for their case.
bool canGoWithOthers(const SheetRow& row) {
  return changeKindOf(row.kind) == ChangeKind::Transfer && isOneDepartment(row.after) &&
         !row.cardNum.empty() && std::ranges::all_of(row.cardNum, [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
         });
}

std::vector<std::optional<ReadyTransfer>> readTransfers(RunContext& context, std::span<const SheetRow> rows) {
  std::vector<TransferFacts> facts(rows.size());
  StatementGroup group(context.dbZKData);
  for (std::size_t i = 0; i < rows.size(); ++i) read(context, group, rows[i], facts[i]);
  group.run();
  std::vector<std::optional<ReadyTransfer>> transfers;
  for (std::size_t i = 0; i < rows.size(); ++i) transfers.push_back(ready(context, rows[i], facts[i]));
  return transfers;
}

void saveTransfers(RunContext& context, std::span<ReadyTransfer> transfers,
                   const std::function<void(StatementGroup&, std::size_t)>& note) {
  OneTransaction transaction(context.engine.workspace());
  number(context.dbZKData, transfers);
  StatementGroup group(context.dbZKData);
  std::vector<CarriedRows> carried;
  for (const ReadyTransfer& transfer : transfers) carried.emplace_back(transfer.sheet.cardNum);
  foreseeTransfers(group, carried);
  NumbersToBe numbers;
  group.runAll([&] {
    for (std::size_t i = 0; i < transfers.size(); ++i) {
      note(group, i);
      transferRules().write(
          {context, context.dbZKData, transfers[i].sheet, transfers[i].card, group, &numbers});
    }
  });
  transaction.commit();
}

}  // namespace zelkor
