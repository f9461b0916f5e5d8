#include "home/CardTally.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "depreciation/MonthlyDepr.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kTransferredOut = 6;
constexpr int kNeverCurrent = 8;

// The columns of the walk by their places.
enum VersionColumn : std::size_t {
  CardNum,
  CardId,
  OptType,
  InputDate,
  TransDate,
  DisposeDate,
  DeptNum,
  TypeNum,
  OriginalValue,
  SubjectNum,
  MethodId,
  Life,
  UsedMonths,
  ResidualValue,
  ResidualRate,
  StartDate
};
constexpr const char* kVersions =
    "select sCardNum,sCardID,iOptType,dInputDate,dTransDate,dDisposeDate,sDeptNum,sTypeNum,dblValue,"
    "sDeprSubjectNum,sDeprMethodID,lLife,lUsedMonths,dblBV,dblBVRate,dStartdate from fa_Cards";

/// The version that a run would compute: the last in the order of the text of its number.
struct RunVersion {
  std::string id;
  std::string department;
  std::string category;
  std::string subject;
  std::optional<Currency> amount;  // nothing where it cannot be computed
};

struct CardSoFar {
  double newest = -1;  // number of the newest version that counts
  TalliedCard card;
  bool hasSubject = false;
  bool disposed = false;
  DateTime disposalDay;
  bool byWorkload = false;
  std::optional<DateTime> entered;
  bool inService = false;
  RunVersion run;
};

std::unordered_set<std::string> codesIn(Database& data, std::string_view table) {
  std::unordered_set<std::string> codes;
  for (Recordset rows = data.OpenRecordset(sql("select sNum from ", table)); !rows.Eof(); rows.MoveNext())
    codes.insert(rows.TextOrEmpty("sNum"));
  return codes;
}

std::unordered_set<std::string> workloadMethods(Database& data) {
  std::unordered_set<std::string> methods;
  Recordset rows = data.OpenRecordset("select sID from fa_Depreciations where sName='工作量法'");
  for (; !rows.Eof(); rows.MoveNext()) methods.insert(rows.TextOrEmpty("sID"));
  return methods;
}

/// The cards whose disposal was staged by the month of the day: whether in that month.
std::unordered_map<std::string, bool> stagedDisposals(Books& books) {
  std::unordered_map<std::string, bool> staged;
  Recordset rows = books.data.OpenRecordset(
      "select distinct coutno_id,ioutyear,ioutperiod from fa_ZWVouchers where coutsign='资产减少'");
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto month = std::pair(static_cast<int>(rows.Fields("ioutyear").numberOrZero()),
                                 static_cast<int>(rows.Fields("ioutperiod").numberOrZero()));
    const auto asked = std::pair(books.year(), books.month());
    if (month <= asked) staged[rows.TextOrEmpty("coutno_id")] |= month == asked;
  }
  return staged;
}

std::optional<Currency> amountOf(const Recordset& version) {
  try {
    return monthlyDepr({version.Fields(MethodId), version.Fields(Life), version.Fields(UsedMonths),
                        version.Fields(OriginalValue), version.Fields(ResidualValue),
                        version.Fields(ResidualRate)})
        .amount;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

class Walk {
 public:
  explicit Walk(Books& books)
      : books_(books),
        departments_(codesIn(books.data, "fa_Departments")),
        categories_(codesIn(books.data, "fa_AssetTypes")),
        workloadMethods_(workloadMethods(books.data)),
        disposals_(stagedDisposals(books)) {}

  CardTally tally() {
    Recordset versions = books_.data.OpenRecordset(kVersions);
    versions.keepStreaming();
    for (; !versions.Eof(); versions.MoveNext()) take(versions);
    for (auto& [number, card] : cards_) finish(number, card);
    return std::move(tally_);
  }

 private:
  void take(const Recordset& version);
  void takeForRun(const Recordset& version, CardSoFar& card, const std::string& id) const;
  bool counts(const Recordset& version, const std::string& number) const;
  void finish(const std::string& number, CardSoFar& card);
  void allocate(const RunVersion& version);
  bool isOfMonth(DateTime day) const { return day.year() == books_.year() && day.month() == books_.month(); }

  Books& books_;
  std::unordered_set<std::string> departments_;
  std::unordered_set<std::string> categories_;
  std::unordered_set<std::string> workloadMethods_;
  std::unordered_map<std::string, bool> disposals_;  // staged: whether in the month
  std::unordered_map<std::string, CardSoFar> cards_;
  CardTally tally_;
};

bool Walk::counts(const Recordset& version, const std::string& number) const {
  const auto isLater = [&](std::size_t column) {
    const Value day = version.Fields(column);
    return !day.isNull() && day.date() > books_.date;
  };
  if (version.Fields(InputDate).isNull() || isLater(InputDate) || isLater(TransDate)) return false;
  return !isLater(DisposeDate) || disposals_.contains(number);
}

void Walk::take(const Recordset& version) {
  const std::string number = version.Fields(CardNum).textOrEmpty();
  CardSoFar& card = cards_[number];
  const std::string id = version.Fields(CardId).textOrEmpty();
  takeForRun(version, card, id);
  if (!counts(version, number)) return;
  if (version.Fields(TransDate).isNull() && version.Fields(DisposeDate).isNull())
    card.entered = version.Fields(InputDate).date();
  const double newest = Val(id);
  if (newest < card.newest) return;
  card.newest = newest;
  card.card.department = version.Fields(DeptNum).textOrEmpty();
  card.card.category = version.Fields(TypeNum).textOrEmpty();
  card.card.value = version.Fields(OriginalValue).numberOrZero();
  card.hasSubject = !version.Fields(SubjectNum).textOrEmpty().empty();
  card.byWorkload = workloadMethods_.contains(version.Fields(MethodId).textOrEmpty());
  const Value disposal = version.Fields(DisposeDate);
  card.disposed = !disposal.isNull();
  if (card.disposed) card.disposalDay = disposal.date();
  const Value kind = version.Fields(OptType);
  card.card.inUse =
      !card.disposed && !kind.isNull() && kind.number() != kTransferredOut && kind.number() != kNeverCurrent;
}

void Walk::takeForRun(const Recordset& version, CardSoFar& card, const std::string& id) const {
  const Value start = version.Fields(StartDate);
  card.inService |= !start.isNull() && start.date() < books_.firstOfMonth();
  std::string department = version.Fields(DeptNum).textOrEmpty();
  std::string category = version.Fields(TypeNum).textOrEmpty();
  if (id < card.run.id || !departments_.contains(department) || !categories_.contains(category)) return;
  card.run = {id, std::move(department), std::move(category), version.Fields(SubjectNum).textOrEmpty(),
              amountOf(version)};
}

void Walk::allocate(const RunVersion& version) {
  if (version.id.empty()) return;  // without department or category
  if (!version.amount) {
    ++tally_.notComputable;
    return;
  }
  Allocation& row = tally_.due[{version.department, version.category, version.subject}];
  ++row.cards;
  row.amount += version.amount->toDouble();
}

void Walk::finish(const std::string& number, CardSoFar& card) {
  ++tally_.cards;
  if (card.inService) {
    ++tally_.inService;
    allocate(card.run);
  }
  if (card.entered && isOfMonth(*card.entered)) {
    ++tally_.enteredInMonth;
    tally_.lastEntered = std::max(tally_.lastEntered, card.entered);
  }
  if (card.disposed) {
    ++tally_.disposed;
    const auto staged = disposals_.find(number);
    const bool inMonth = staged == disposals_.end() ? isOfMonth(card.disposalDay) : staged->second;
    tally_.disposedInMonth += inMonth ? 1 : 0;
  }
  if (card.card.inUse) {
    ++tally_.inUse;
    if (!card.hasSubject) ++tally_.withoutSubject;
    if (card.byWorkload) tally_.workloadCards.push_back(number);
  }
  tally_.byNumber.emplace(number, std::move(card.card));
}

}  // namespace

CardTally tallyCards(Books& books) {
  return Walk(books).tally();
}

}  // namespace zelkor
