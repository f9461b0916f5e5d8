#include "depreciation/DeprChangeReason.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::int32_t kDisposal = 3;

/// What change sheets leave in the kind of the version that they make.
constexpr std::array<std::pair<std::int32_t, const char*>, 6> kSheetKinds = {{{1, "原值增加"},
                                                                              {6, "部门转移"},
                                                                              {7, "部门转移"},
                                                                              {10, "使用状况调整"},
                                                                              {11, "累计折旧调整"},
                                                                              {12, "使用年限调整"}}};

std::string dateText(const Value& date) {
  return Format(date, "yyyy-mm-dd");
}

bool isFrom(const Value& date, DateTime day) {
  return !date.isNull() && date.date() >= day;
}

bool comesTo(const DeprVersion& version, Currency ledger) {
  return version.depr && ledgerAmount(version.depr->amount) == ledger;
}

/// Clauses of a sentence, each once.
class Clauses {
 public:
  void add(const std::string& clause) {
    if (clause.empty() || std::ranges::find(clauses_, clause) != clauses_.end()) return;
    clauses_.push_back(clause);
  }
  void addChange(const char* what, const std::string& before, const std::string& now) {
    if (before != now) add(what + (before.empty() ? "空" : before) + "→" + (now.empty() ? "空" : now));
  }
  std::string text() const {
    std::string all;
    for (const std::string& clause : clauses_) all += (all.empty() ? "" : "；") + clause;
    return all;
  }

 private:
  std::vector<std::string> clauses_;
};

bool isDisposal(const DeprVersion& version) {
  return version.kind == kDisposal && !version.disposed.isNull();
}

bool isUsedUp(const DeprVersion& version) {
  const double life = version.basis.lLife.numberOrZero();
  return life > 0 && version.basis.lUsedMonths.numberOrZero() >= life;
}

/// Why a card is computed for the first time.
std::string firstTime(const DeprCard& card, DateTime month) {
  const auto use = card.firstUse();
  const std::string since = use ? dateText(*use) + " 开始使用" : "没有开始使用日期";
  if (!card.inServiceBefore(DateAdd("m", -1, month))) return "首月计提：" + since;
  const bool isNew = std::ranges::all_of(
      card.versions, [month](const DeprVersion& version) { return isFrom(version.entered, month); });
  return isNew ? "本月新录入的卡片：" + since : "上月没有计提";
}

std::string noLonger(const DeprCard& card, DateTime month) {
  if (card.versions.empty()) return "卡片已不在，台账中还有";
  if (!card.current()) return "部门或类别不在档案中，不再计提";
  const auto use = card.firstUse();
  if (!card.inServiceBefore(month)) return use ? "开始使用日期现为 " + dateText(*use) : "开始使用日期已空";
  return "不再计提";
}

}  // namespace

DeprChangeReason::DeprChangeReason(Database& data, DateTime month) : data_(data), month_(month) {
  Recordset methods = data.OpenRecordset("select sID,sName from fa_Depreciations order by sID");
  for (; !methods.Eof(); methods.MoveNext())
    methods_.emplace(methods.TextOrEmpty("sID"), methods.TextOrEmpty("sName"));
}

const DeprVersion* DeprChangeReason::versionBefore(const DeprCard& card) const {
  const DeprVersion* last = nullptr;
  for (const DeprVersion& version : card.versions) {
    if (!version.inArchives || isFrom(version.changed, month_)) continue;
    if (comesTo(version, card.lastMonth)) return &version;
    if (!last) last = &version;
  }
  return last;
}

std::string DeprChangeReason::text(const DeprCard& card, const DeprVersion* before, bool computed) {
  if (!computed) return noLonger(card, month_);
  const DeprVersion& now = *card.current();
  Clauses clauses;
  if (card.lastMonth == Currency()) {
    const bool wasComputed = before && card.inServiceBefore(DateAdd("m", -1, month_)) &&
                             comesTo(*before, Currency()) && !isFrom(before->entered, month_);
    if (!wasComputed) return firstTime(card, month_);
  }
  if (before) clauses.add(causes(*before, now));
  if (!before || !comesTo(*before, card.lastMonth))
    clauses.add("上月的数与卡片各次记录都不符，卡片或台账改过");
  if (isUsedUp(now)) clauses.add("已计提月份达到使用年限");
  return clauses.text();
}

/// The sheets between the two versions, the earliest first, and what is different.
std::string DeprChangeReason::causes(const DeprVersion& before, const DeprVersion& now) {
  Clauses clauses;
  for (const DeprVersion* version = &before; version > &now; --version) {
    clauses.add(sheetOf(*(version - 1), *version));
  }
  const auto number = [](const Value& value) { return value.textOrEmpty(); };
  clauses.addChange("折旧方法", methodName(before.basis.sDeprMethodID), methodName(now.basis.sDeprMethodID));
  clauses.addChange("使用月数", number(before.basis.lLife), number(now.basis.lLife));
  clauses.addChange("原值", number(before.basis.dblValue), number(now.basis.dblValue));
  clauses.addChange("净残值", number(before.basis.dblBV), number(now.basis.dblBV));
  clauses.addChange("净残值率", number(before.basis.dblBVRate), number(now.basis.dblBVRate));
  clauses.addChange("已计提月份", number(before.basis.lUsedMonths), number(now.basis.lUsedMonths));
  clauses.addChange("部门", before.place.department, now.place.department);
  clauses.addChange("类别", before.place.category, now.place.category);
  clauses.addChange("科目", before.place.subject, now.place.subject);
  return clauses.text();
}

std::string DeprChangeReason::sheetOf(const DeprVersion& version, const DeprVersion& older) {
  if (isDisposal(version) && !isDisposal(older)) return "资产减少（" + dateText(version.disposed) + "）";
  if (version.basis.sDeprMethodID != older.basis.sDeprMethodID) return methodSheet(version);
  if (version.sheet.empty() || version.sheet == older.sheet) return {};
  const auto kind =
      std::ranges::find(kSheetKinds, version.kind, &std::pair<std::int32_t, const char*>::first);
  const std::string name = kind == kSheetKinds.end() ? "" : kind->second;
  return "变动单 " + version.sheet + " " + name + "（" + dateText(version.changed) + "）";
}

/// That sheet leaves no number in the version that it makes.
std::string DeprChangeReason::methodSheet(const DeprVersion& version) {
  const std::string name = "折旧方法调整";
  if (version.changed.isNull()) return name;
  const Recordset sheet = data_.OpenRecordset(
      sql("select sNum from fa_Vouchers where sCardNum='", version.cardNum, "' and sVoucherName='", name,
          "' and dTransDate=#", dayText(version.changed.date()), "# order by sNum desc"));
  const std::string number = sheet.Eof() ? "" : sheet.TextOrEmpty("sNum") + " ";
  return "变动单 " + number + name + "（" + dateText(version.changed) + "）";
}

std::string DeprChangeReason::methodName(const Value& number) {
  const auto method = methods_.find(number.textOrEmpty());
  return method == methods_.end() ? number.textOrEmpty() : method->second;
}

}  // namespace zelkor
