#include "depreciation/DeprCards.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kFigures =
    "select sCardNum,sAssetName,sDeprMethodID,lLife,lUsedMonths,dblValue,dblBV,dblBVRate,sDeptNum,sTypeNum,"
    "sDeprSubjectNum,sDeprSubjectName,dStartdate,dblTransInDeprTCard";
constexpr const char* kHistory = ",dInputDate,dTransDate,dDisposeDate,iOptType,sVoucherNum";
constexpr const char* kInOrder = " from fa_Cards order by sCardNum,sCardID desc";

/// Places in that query: reading by place is what makes a walk over many cards quick.
enum VersionColumn : std::size_t {
  kCardNum,
  kAssetName,
  kMethod,
  kLife,
  kUsedMonths,
  kValue,
  kResidual,
  kResidualRate,
  kDepartment,
  kCategory,
  kSubject,
  kSubjectName,
  kStart,
  kCarriedIn,
  kEntered,
  kChanged,
  kDisposed,
  kKind,
  kSheet
};

enum LedgerColumn : std::size_t { kLedgerCard, kOpening, kInput, kFirstMonth };

/// The months before the month come behind the opening figures.
std::string ledgerQuery(int month) {
  std::string columns = "select sCardNum,dblMonthDeprTotal,dblInputDeprTotal";
  for (int m = 1; m < month; ++m) columns += sql(",dblDepr", m);
  return columns + " from fa_DeprTransactions order by sCardNum";
}

std::string textAt(const Recordset& rows, std::size_t column) {
  return rows.Fields(column).textOrEmpty();
}

/// Texts compare in statements without regard to the case of letters.
std::string keyAt(const Recordset& rows, std::size_t column) {
  return asciiLower(textAt(rows, column));
}

/// Nothing where the column holds no date, as in tables that were changed by hand: no condition takes it for
/// one.
Value dateAt(const Recordset& rows, std::size_t column) {
  Value value = rows.Fields(column);
  return IsDate(value) ? value : Value();
}

std::optional<MonthlyDepr> computed(const DeprBasis& basis) {
  try {
    return monthlyDepr(basis);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

bool isBefore(const Value& date, DateTime day) {
  return !date.isNull() && date.date() < day;
}

/// The run goes by the numbers as they are written, and finds the versions of each without regard to case.
bool isSpelledTwice(const DeprCard& card, DateTime first) {
  const std::string* spelling = nullptr;
  for (const DeprVersion& version : card.versions) {
    if (!isBefore(version.start, first)) continue;
    if (spelling && *spelling != version.cardNum) return true;
    spelling = &version.cardNum;
  }
  return false;
}

}  // namespace

const DeprVersion* DeprCard::current() const {
  const auto version = std::ranges::find_if(versions, &DeprVersion::inArchives);
  return version == versions.end() ? nullptr : &*version;
}

bool DeprCard::inServiceBefore(DateTime day) const {
  return std::ranges::any_of(versions, [day](const DeprVersion& one) { return isBefore(one.start, day); });
}

std::optional<DateTime> DeprCard::firstUse() const {
  std::optional<DateTime> first;
  for (const DeprVersion& version : versions) {
    if (version.start.isNull()) continue;
    if (!first || version.start.date() < *first) first = version.start.date();
  }
  return first;
}

DeprCards::DeprCards(Database& data, DateTime month, DeprDetail detail)
    : month_(month.month()),
      detail_(detail),
      departments_(namesIn(data, "select sNum,sName from fa_Departments")),
      categories_(namesIn(data, "select sNum,sName from fa_AssetTypes")),
      ledger_(data.OpenRecordset(ledgerQuery(month_))),
      versions_(data.OpenRecordset(sql(kFigures, detail == DeprDetail::History ? kHistory : "", kInOrder))) {
  if (!ledger_.Eof()) ledgerKey_ = keyAt(ledger_, kLedgerCard);
  if (!versions_.Eof()) versionKey_ = keyAt(versions_, kCardNum);
}

void DeprCards::nextVersion() {
  versions_.MoveNext();
  if (!versions_.Eof()) versionKey_ = keyAt(versions_, kCardNum);
}

void DeprCards::nextLedger() {
  ledger_.MoveNext();
  if (!ledger_.Eof()) ledgerKey_ = keyAt(ledger_, kLedgerCard);
}

/// Of several rows with one code the run takes the one that was added last.
DeprCards::Names DeprCards::namesIn(Database& data, const char* query) {
  Names names;
  for (Recordset rows = data.OpenRecordset(query); !rows.Eof(); rows.MoveNext()) {
    if (!rows.Fields(0).isNull()) names.insert_or_assign(keyAt(rows, 0), textAt(rows, 1));
  }
  return names;
}

DeprVersion DeprCards::versionHere() const {
  const Recordset& row = versions_;
  const auto department = departments_.find(keyAt(row, kDepartment));
  const auto category = categories_.find(keyAt(row, kCategory));
  DeprVersion version;
  version.cardNum = textAt(row, kCardNum);
  version.assetName = textAt(row, kAssetName);
  version.basis = {row.Fields(kMethod), row.Fields(kLife),     row.Fields(kUsedMonths),
                   row.Fields(kValue),  row.Fields(kResidual), row.Fields(kResidualRate)};
  version.depr = computed(version.basis);
  version.place = {textAt(row, kDepartment), department == departments_.end() ? "" : department->second,
                   textAt(row, kCategory),   category == categories_.end() ? "" : category->second,
                   textAt(row, kSubject),    textAt(row, kSubjectName)};
  version.inArchives = department != departments_.end() && category != categories_.end() &&
                       !row.Fields(kDepartment).isNull() && !row.Fields(kCategory).isNull();
  version.start = dateAt(row, kStart);
  if (detail_ == DeprDetail::Figures) return version;
  version.entered = dateAt(row, kEntered);
  version.changed = dateAt(row, kChanged);
  version.disposed = dateAt(row, kDisposed);
  version.kind = static_cast<std::int32_t>(row.Fields(kKind).numberOrZero());
  version.sheet = textAt(row, kSheet);
  return version;
}

/// A closing sets the opening total anew, and not always to what the months before have come to: the larger
/// figure counts.
void DeprCards::takeLedger(DeprCard& card) {
  double accumulated = ledger_.Fields(kInput).numberOrZero();
  double amount = 0;
  for (int m = 1; m < month_; ++m) {
    amount = ledger_.Fields(kFirstMonth + static_cast<std::size_t>(m) - 1).numberOrZero();
    accumulated += amount;
  }
  card.lastMonth = Currency::fromDouble(amount);
  const double opening = ledger_.Fields(kOpening).numberOrZero();
  card.opening = std::abs(opening) > std::abs(accumulated) ? opening : accumulated;
}

bool DeprCards::next(DeprCard& card) {
  card = {};
  if (versions_.Eof() && ledger_.Eof()) return false;
  const bool onlyLedger = versions_.Eof() || (!ledger_.Eof() && ledgerKey_ < versionKey_);
  card.number = onlyLedger ? textAt(ledger_, kLedgerCard) : textAt(versions_, kCardNum);
  const std::string key = onlyLedger ? ledgerKey_ : versionKey_;
  if (!onlyLedger) card.opening = versions_.Fields(kCarriedIn).numberOrZero();
  for (; !onlyLedger && !versions_.Eof() && versionKey_ == key; nextVersion()) {
    card.versions.push_back(versionHere());
  }
  if (!ledger_.Eof() && ledgerKey_ == key) takeLedger(card);
  while (!ledger_.Eof() && ledgerKey_ == key) nextLedger();
  return true;
}

void PassedOver::count(const DeprCard& card) {
  if (card.versions.empty() || card.versions.front().inArchives) return;
  ++(card.current() ? byOlder : notAtAll);
}

std::vector<std::string> PassedOver::remarks() const {
  std::vector<std::string> sentences;
  if (notAtAll > 0) sentences.push_back(sql("有 ", notAtAll, " 张卡片的部门或类别不在档案中，不计提"));
  if (byOlder > 0) {
    sentences.push_back(
        sql("有 ", byOlder, " 张卡片最新记录的部门或类别不在档案中（如多部门使用），按以前的记录计提"));
  }
  return sentences;
}

std::optional<std::string> deprProblem(const DeprCard& card, DateTime first) {
  const auto of = [&card](const std::string& reason) { return "卡片“" + card.number + "”" + reason; };
  const DeprVersion* version = card.current();
  if (!version || card.number.empty()) return std::nullopt;
  if (card.number.ends_with(' ')) return of("的编号末尾有空格，计提时找不到它");
  if (isSpelledTwice(card, first)) return of("的各次记录编号大小写不同，计提会重复计算");
  const DeprPlace& place = version->place;
  const std::array texts = {&card.number,        &place.department, &place.departmentName, &place.category,
                            &place.categoryName, &place.subject,    &place.subjectName};
  if (std::ranges::any_of(texts,
                          [](const std::string* text) { return text->find('\'') != std::string::npos; }))
    return of("的编号、部门、类别或科目中有单引号（'），计提会在这张卡片停止");
  if (version->depr) return std::nullopt;
  try {
    monthlyDepr(version->basis);
  } catch (const RuntimeError& error) {
    return of(sql("的数据不能计算，计提会在这张卡片停止：错误 ", error.number(), "，", error.what()));
  }
  return std::nullopt;
}

}  // namespace zelkor
