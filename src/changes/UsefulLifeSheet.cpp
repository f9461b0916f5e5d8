#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "cards/CardSheet.h"
#include "changes/SheetRules.h"
#include "changes/UsefulLife.h"

// 使用年限调整: gives the asset another useful life. An unchanged life makes a sheet, too.

namespace zelkor {
namespace {

constexpr std::string_view kYearSign = "年";
constexpr std::string_view kMonthSign = "月";
constexpr int kMonthsOfYear = 12;

void show(Database& /*database*/, const CardVersion& card, ChangeSheet& sheet) {
  sheet.before.text = lifeText(CLng(card["lLife"].numberOrZero()));
}

std::optional<MessageBox> check(const ChangeSheet& sheet) {
  monthsOnSheet(sheet.before.text);
  monthsOnSheet(sheet.after.text);
  if (sheet.reason.empty()) return refusal("变动原因不能为空", "保存:使用年限调整");
  return std::nullopt;
}

void write(const SheetSaving& saving) {
  const ChangeSheet& sheet = saving.sheet;
  saving.group.foresee({kHighestVersion});
  const VersionKeys keys = keysBehindAll(saving, 12);
  addVersion(saving, keys, {{"lLife", monthsOnSheet(sheet.after.text)}});
  addSheet(saving, ChangeKind::UsefulLife, keys.lOptID, sheet.before.text, sheet.after.text);
}

}  // namespace

std::int16_t monthsOnSheet(std::string_view text) {
  const std::size_t years = text.find(kYearSign);
  const std::size_t months = years == std::string_view::npos ? years : text.find(kMonthSign, years);
  if (months == std::string_view::npos) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const std::size_t between = years + kYearSign.size();
  return CInt(CDbl(Value(text.substr(0, years))) * kMonthsOfYear +
              CDbl(Value(text.substr(between, months - between))));
}

std::string completedLife(std::string_view typed) {
  if (typed.empty()) return {};
  const std::size_t years = typed.find(kYearSign);
  const bool hasYears = years != std::string_view::npos;
  std::string_view months = hasYears ? typed.substr(years + kYearSign.size()) : std::string_view();
  months = months.substr(0, months.find(kMonthSign));
  const auto orZero = [](std::string_view number) { return std::string(number.empty() ? "0" : number); };
  return orZero(typed.substr(0, years)) + std::string(kYearSign) + orZero(months) + std::string(kMonthSign);
}

const SheetRules& usefulLifeRules() {
  static constexpr SheetRules kRules{.find = newestVersion,
                                     .show = show,
                                     .pick = nullptr,
                                     .stored = storedText,
                                     .check = check,
                                     .write = write,
                                     .afterwards = nullptr};
  return kRules;
}

}  // namespace zelkor
