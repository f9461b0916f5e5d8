#include "home/MonthFacts.h"

#include <cmath>
#include <string_view>
#include <unordered_set>

#include "base/Conversion.h"
#include "startup/RunTypes.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"
#include "vouchers/BatchBilling.h"

namespace zelkor {
namespace {

constexpr double kHalfACent = 0.005;

long countOf(Database& data, std::string_view query) {
  return static_cast<long>(data.OpenRecordset(query).Fields("n").numberOrZero());
}

std::optional<DateTime> dayIn(const Recordset& row, std::string_view column) {
  const Value day = row.Fields(column);
  return day.isNull() ? std::nullopt : std::optional(day.date());
}

void readArchives(Books& books, MonthFacts& facts) {
  constexpr std::string_view kLowest =
      "select count(*) as n from fa_departments where sNum<>'&' and lchilds=0";
  facts.departments = countOf(books.data, kLowest);
  facts.departmentsWithoutSubject =
      countOf(books.data, sql(kLowest, " and (sSubjectNum is null or sSubjectNum='')"));
  facts.categories = countOf(books.data, "select count(*) as n from fa_AssetTypes where sNum<>'&'");
  facts.statuses = countOf(books.data, "select count(*) as n from fa_Status where lchilds=0 and iLevel>1");
}

void readSheets(Books& books, MonthFacts& facts) {
  const DateTime first = books.firstOfMonth();
  const Recordset sheets = books.data.OpenRecordset(
      sql("select count(*) as n,max(dTransDate) as lastDay from fa_Vouchers where dTransDate>=#",
          dayText(first), "# and dTransDate<#", dayText(DateAdd("m", 1, first)), "#"));
  facts.sheets = static_cast<long>(sheets.Fields("n").numberOrZero());
  facts.lastSheet = dayIn(sheets, "lastDay");
}

/// A card has its work of the month once there is some, or some was done before and none is.
void readWorkload(Books& books, const CardTally& cards, MonthFacts& facts) {
  facts.workloadCards = static_cast<long>(cards.workloadCards.size());
  if (facts.workloadCards == 0) return;
  std::unordered_set<std::string> filled;
  Recordset rows = books.data.OpenRecordset(sql("select sCardNum from fa_WorkLoad where dblWork",
                                                books.month(), "<>0 or dblWorkT", books.month(), "<>0"));
  for (; !rows.Eof(); rows.MoveNext()) filled.insert(rows.TextOrEmpty("sCardNum"));
  for (const std::string& card : cards.workloadCards) facts.workloadFilled += filled.contains(card) ? 1 : 0;
}

/// Whether the run's allocation is what the cards would come to now.
bool isAllocated(Database& data, const Allocations& due) {
  Recordset rows = data.OpenRecordset(
      "select sDeptNum,sTypeNum,sSubjectNum,count(*) as n,sum(dblCredit) as total from fa_DeprVouchers "
      "group by sDeptNum,sTypeNum,sSubjectNum");
  std::size_t groups = 0;
  for (; !rows.Eof(); rows.MoveNext(), ++groups) {
    const auto row = due.find(
        {rows.TextOrEmpty("sDeptNum"), rows.TextOrEmpty("sTypeNum"), rows.TextOrEmpty("sSubjectNum")});
    if (row == due.end() || row->second.cards != static_cast<long>(rows.Fields("n").numberOrZero()) ||
        std::abs(row->second.amount - rows.Fields("total").numberOrZero()) > kHalfACent)
      return false;
  }
  return groups == due.size();
}

void readDepreciation(Books& books, const CardTally& cards, MonthFacts& facts) {
  facts.depreciationIsDue = isYes(readParameter(books.data, "bNeedDepr").value_or(""));
  Recordset runs = books.data.OpenRecordset("select iMaxPeriod from fa_DeprVoucherMain");
  for (; !runs.Eof(); runs.MoveNext())
    facts.lastRun = static_cast<int>(runs.Fields("iMaxPeriod").numberOrZero());
  const Recordset staged = books.data.OpenRecordset(
      sql("select count(*) as n,sum(mc) as total,max(doutbilldate) as lastDay from fa_ZWVouchers where "
          "coutsign='折旧计提' and ioutyear=",
          books.year(), " and ioutperiod=", books.month()));
  facts.depreciationIsStaged = staged.Fields("n").numberOrZero() > 0;
  facts.depreciation = staged.Fields("total").numberOrZero();
  facts.lastDepreciation = dayIn(staged, "lastDay");
  facts.cardsInService = cards.inService;
  facts.comparedWithRun = false;
}

void readEvents(Books& books, MonthFacts& facts) {
  Recordset pending = books.data.OpenRecordset(stagedEventsQuery(books.date));
  for (; !pending.Eof(); pending.MoveNext()) {
    ++facts.pendingEvents;
    facts.pendingAmount += pending.Fields("mc").numberOrZero();
  }
  const Recordset billed = books.data.OpenRecordset(
      sql("select count(*) as n,max(doutbilldate) as lastDay from fa_ZWVouchers where cDefine1='1' and "
          "ioutyear=",
          books.year(), " and ioutperiod=", books.month(), " and mc<>0"));
  facts.billedEvents = static_cast<long>(billed.Fields("n").numberOrZero());
  facts.lastBilled = dayIn(billed, "lastDay");
}

void readBackups(Books& books, MonthFacts& facts) {
  const std::vector<SetBackup> backups = backupsOf(books.dataFile, books.account);
  if (const SetBackup* last = lastOfMonth(backups, books.year(), books.month())) {
    facts.backup = last->note.time;
    facts.sinceBackup = rowsSince(last->note, books.data);
  }
  const auto closed = closedBefore(facts.open);
  if (closed && lastOfMonth(backups, closed->year, closed->month)) facts.reopening = closed;
}

void takeCards(const CardTally& cards, MonthFacts& facts) {
  facts.cards = cards.cards;
  facts.cardsInUse = cards.inUse;
  facts.cardsEntered = cards.enteredInMonth;
  facts.cardsWithoutSubject = cards.withoutSubject;
  facts.lastCard = cards.lastEntered;
  facts.disposals = cards.disposedInMonth;
}

}  // namespace

MonthFacts readMonthFacts(Books& books, const CardTally& cards) {
  MonthFacts facts;
  facts.date = books.date;
  facts.busyWith = books.data.jobHolder();
  facts.initialised = IsAccountInitialised(books.data);
  facts.startDate = readParameter(books.data, "dStartDate").value_or("");
  facts.depreciates = isYes(readParameter(books.data, "bCalcDepr").value_or("TRUE"));
  facts.open = openPeriod(books.data, books.system, books.account);
  readArchives(books, facts);
  takeCards(cards, facts);
  readSheets(books, facts);
  readWorkload(books, cards, facts);
  readDepreciation(books, cards, facts);
  readEvents(books, facts);
  readBackups(books, facts);
  return facts;
}

void compareWithRun(Books& books, const CardTally& cards, MonthFacts& facts) {
  facts.comparedWithRun = true;
  facts.cardsNotComputable = cards.notComputable;
  facts.changedSinceRun =
      facts.lastRun == books.month() && (cards.notComputable > 0 || !isAllocated(books.data, cards.due));
}

}  // namespace zelkor
