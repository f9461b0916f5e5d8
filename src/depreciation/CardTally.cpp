#include "depreciation/CardTally.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <string_view>
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

// The columns of the walk by their places; those behind StartDate are read for a whole tally.
enum VersionColumn : std::size_t {
  CardNum,
  CardId,
  OptType,
  InputDate,
  TransDate,
  DisposeDate,
  SubjectNum,
  MethodId,
  StartDate,
  DeptNum,
  TypeNum,
  OriginalValue,
  Life,
  UsedMonths,
  ResidualValue,
  ResidualRate
};
constexpr std::string_view kNumbers =
    "sCardNum,sCardID,iOptType,dInputDate,dTransDate,dDisposeDate,sDeprSubjectNum,sDeprMethodID,dStartdate";
constexpr std::string_view kRest = ",sDeptNum,sTypeNum,dblValue,lLife,lUsedMonths,dblBV,dblBVRate";

/// The version that a run would compute: the last in the order of the text of its number.
struct RunVersion {
  std::string id;
  std::string department;
  std::string category;
  std::string subject;
  std::optional<Currency> amount;  // nothing where it cannot be computed
};

/// What a whole tally knows besides.
struct WholeCard {
  TalliedCard card;
  RunVersion run;
};

struct CardSoFar {
  std::string newest;  // number of the newest version that counts
  DateTime disposalDay;
  std::optional<DateTime> entered;
  std::unique_ptr<WholeCard> whole;
  bool inUse = false;
  bool hasSubject = false;
  bool disposed = false;
  bool byWorkload = false;
  bool inService = false;
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

/// The days of a version.
struct Days {
  Value entered;
  Value changed;
  Value disposed;
};

class Walk {
 public:
  Walk(Books& books, TallyDepth depth)
      : books_(books),
        whole_(depth == TallyDepth::Whole),
        first_(books.firstOfMonth()),
        workloadMethods_(workloadMethods(books.data)),
        disposals_(stagedDisposals(books)) {
    if (!whole_) return;
    departments_ = codesIn(books.data, "fa_Departments");
    categories_ = codesIn(books.data, "fa_AssetTypes");
  }

  CardTally tally() {
    Recordset versions =
        books_.data.OpenRecordset(sql("select ", kNumbers, whole_ ? kRest : "", " from fa_Cards"));
    versions.keepStreaming();
    for (; !versions.Eof(); versions.MoveNext()) take(versions);
    if (whole_) tally_.byNumber.reserve(cards_.size());
    for (auto& [number, card] : cards_) finish(number, card);
    for (auto& [number, id] : last_) tally_.newest.push_back(std::move(id));
    return std::move(tally_);
  }

 private:
  void take(const Recordset& version);
  void takeForRun(const Recordset& version, const std::string& id, RunVersion& run) const;
  void takeLast(const std::string& id);
  void takeNewest(const Recordset& version, const Days& days, CardSoFar& card) const;
  bool counts(const Days& days, const std::string& number) const;
  void finish(const std::string& number, CardSoFar& card);
  void allocate(const RunVersion& version);
  bool isOfMonth(DateTime day) const { return day.year() == books_.year() && day.month() == books_.month(); }

  Books& books_;
  bool whole_;
  DateTime first_;
  std::unordered_set<std::string> departments_;
  std::unordered_set<std::string> categories_;
  std::unordered_set<std::string> workloadMethods_;
  std::unordered_map<std::string, bool> disposals_;  // staged: whether in the month
  std::pmr::monotonic_buffer_resource memory_;       // one that is given back at once: cards are many
  std::pmr::unordered_map<std::string, CardSoFar> cards_{&memory_};
  std::multimap<double, std::string> last_;
  CardTally tally_;
};

bool Walk::counts(const Days& days, const std::string& number) const {
  const auto isLater = [&](const Value& day) { return !day.isNull() && day.date() > books_.date; };
  if (days.entered.isNull() || isLater(days.entered) || isLater(days.changed)) return false;
  return !isLater(days.disposed) || disposals_.contains(number);
}

void Walk::take(const Recordset& version) {
  ++tally_.versions;
  std::string number = version.Fields(CardNum).textOrEmpty();
  std::string id = version.Fields(CardId).textOrEmpty();
  const Days days{version.Fields(InputDate), version.Fields(TransDate), version.Fields(DisposeDate)};
  const bool inForce = counts(days, number);
  CardSoFar& card = cards_[std::move(number)];
  if (!card.inService) {
    const Value start = version.Fields(StartDate);
    card.inService = !start.isNull() && start.date() < first_;
  }
  if (whole_) {
    if (!card.whole) card.whole = std::make_unique<WholeCard>();
    takeForRun(version, id, card.whole->run);
    takeLast(id);
  }
  if (!inForce) return;
  if (days.changed.isNull() && days.disposed.isNull()) card.entered = days.entered.date();
  if (!card.newest.empty() && Val(id) < Val(card.newest)) return;
  card.newest = std::move(id);
  takeNewest(version, days, card);
}

/// Keeps the ids with the greatest numbers.
void Walk::takeLast(const std::string& id) {
  const double number = Val(id);
  if (last_.size() == CardTally::kMostNewest && number <= last_.begin()->first) return;
  last_.emplace(number, id);
  if (last_.size() > CardTally::kMostNewest) last_.erase(last_.begin());
}

void Walk::takeNewest(const Recordset& version, const Days& days, CardSoFar& card) const {
  card.hasSubject = !version.Fields(SubjectNum).textOrEmpty().empty();
  card.byWorkload =
      !workloadMethods_.empty() && workloadMethods_.contains(version.Fields(MethodId).textOrEmpty());
  card.disposed = !days.disposed.isNull();
  if (card.disposed) card.disposalDay = days.disposed.date();
  const Value kind = version.Fields(OptType);
  card.inUse =
      !card.disposed && !kind.isNull() && kind.number() != kTransferredOut && kind.number() != kNeverCurrent;
  if (!whole_) return;
  card.whole->card = {version.Fields(DeptNum).textOrEmpty(), version.Fields(TypeNum).textOrEmpty(),
                      version.Fields(OriginalValue).numberOrZero(), card.inUse};
}

void Walk::takeForRun(const Recordset& version, const std::string& id, RunVersion& run) const {
  std::string department = version.Fields(DeptNum).textOrEmpty();
  std::string category = version.Fields(TypeNum).textOrEmpty();
  if (id < run.id || !departments_.contains(department) || !categories_.contains(category)) return;
  run = {id, std::move(department), std::move(category), version.Fields(SubjectNum).textOrEmpty(),
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
    if (whole_) allocate(card.whole->run);
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
  if (card.inUse) {
    ++tally_.inUse;
    if (!card.hasSubject) ++tally_.withoutSubject;
    if (card.byWorkload) tally_.workloadCards.push_back(number);
  }
  if (whole_) tally_.byNumber.emplace(number, std::move(card.whole->card));
}

}  // namespace

CardTally tallyCards(Books& books, TallyDepth depth) {
  return Walk(books, depth).tally();
}

}  // namespace zelkor
