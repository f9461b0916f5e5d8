#include "audit/BookCheck.h"

#include <algorithm>
#include <functional>
#include <future>
#include <tuple>

#include "audit/CheckPeriod.h"
#include "audit/FileCheck.h"
#include "audit/LedgerCheck.h"
#include "audit/ReadBooks.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/accountset/BooksRevision.h"

namespace zelkor {
namespace {

constexpr const char* kDataFile = "数据文件";
constexpr const char* kSystemFile = "系统文件";
constexpr std::string_view kRule = "规则 ";
constexpr std::string_view kDeviceFails = "设备 I/O 错误：";  // as the engines begin it

bool isUnknownName(const RuntimeError& error) {
  return error.is(ErrorNumber::CannotOpenTableOrQuery) || error.is(ErrorNumber::TooFewParameters);
}

bool isMissingNamed(const CheckResult& result) {
  return std::ranges::any_of(
      result.findings, [](const Finding& one) { return one.rule->code == "F02" || one.rule->code == "F03"; });
}

/// Whether it is what an earlier finding tells of: a connection that broke has other words the next time.
bool isTold(const Finding& finding, const RuntimeError& error) {
  return finding.detail == error.what() ||
         (error.is(ErrorNumber::DeviceIo) && finding.detail.starts_with(kDeviceFails));
}

/// Parts that fail for one reason are one finding: a damaged page or a connection that broke stops many.
void tellNotDone(const std::string& part, const RuntimeError& error, CheckResult& result) {
  const CheckRule* rule = findCheckRule("F05");
  const auto told = std::ranges::find_if(
      result.findings, [&](const Finding& one) { return one.rule == rule && isTold(one, error); });
  if (told == result.findings.end()) {
    result.findings.push_back({.rule = rule, .place = part, .detail = error.what()});
  } else {
    const bool goesOn = part.starts_with(kRule) && told->place.starts_with(kRule);
    told->place += "、" + (goesOn ? part.substr(kRule.size()) : part);
  }
}

/// Does a part of the check. What fails because a table is not there, which has been told, is a note;
/// anything else is a finding.
void guarded(const std::string& part, CheckResult& result, const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    if (isUnknownName(error) && isMissingNamed(result)) {
      result.notes.push_back(part + " 没有检查：" + error.what());
    } else {
      tellNotDone(part, error, result);
    }
  }
}

/// The value of a column that the rule's query may not have.
Value cellOf(const Recordset& rows, std::string_view name) {
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    if (rows.FieldName(i) == name) return rows.Fields(i);
  }
  return {};
}

Finding findingOf(const Recordset& row, const CheckRule& asked) {
  const Value code = cellOf(row, "code");
  const Value period = cellOf(row, "period");
  const Value amount = cellOf(row, "amount");
  Finding finding{.rule = code.isNull() ? &asked : findCheckRule(code.text()),
                  .card = cellOf(row, "card").textOrEmpty(),
                  .place = cellOf(row, "place").textOrEmpty(),
                  .period = period.isNull() ? 0 : CInt(period),
                  .detail = cellOf(row, "detail").textOrEmpty()};
  if (!amount.isNull()) finding.amount = CCur(amount);
  return finding;
}

void ask(ReadBooks& books, const CheckRule& rule, const CheckPeriod& period, CheckResult& result) {
  if (rule.statement.empty() || !period.admits(rule.time)) return;
  const auto first = static_cast<std::ptrdiff_t>(result.findings.size());
  Recordset rows = books.data().OpenRecordset(period.filled(rule.statement));
  for (; !rows.Eof(); rows.MoveNext()) {
    Finding finding = findingOf(rows, rule);
    if (finding.rule != nullptr) result.findings.push_back(std::move(finding));
  }
  std::ranges::stable_sort(result.findings.begin() + first, result.findings.end(), {},
                           [](const Finding& one) { return std::tie(one.period, one.card, one.place); });
}

void checkSystemFile(const std::string& path, CheckResult& result) {
  if (path.empty()) return;
  ReadBooks system(path);
  guarded(kSystemFile, result, [&] {
    addIntegrity(system.tables().checkIntegrity(), kSystemFile, result);
    checkTables(system, systemTables(), result);
  });
}

IntegrityCheck integrityOf(const std::string& path) {
  ReadBooks books(path);
  return books.tables().checkIntegrity();
}

void sortByRule(std::vector<Finding>& findings) {
  std::ranges::stable_sort(findings, {}, [](const Finding& one) { return one.rule - checkRules().data(); });
}

}  // namespace

bool CheckResult::isSound() const {
  return std::ranges::all_of(findings,
                             [](const Finding& one) { return one.rule->severity == Severity::Note; });
}

CheckResult checkData(ReadBooks& books, const std::string& name, const DateTime& date) {
  CheckResult result;
  if (const std::string advice = renewalAdvice(books.engine(), name); !advice.empty())
    result.notes.push_back(advice);
  guarded(kDataFile, result, [&] { checkTables(books, dataTables(), result); });
  guarded("各月的数据", result, [&] {
    const CheckPeriod period = CheckPeriod::of(books.data(), date);
    for (const CheckRule& rule : checkRules())
      guarded(std::string(kRule).append(rule.code), result, [&] { ask(books, rule, period, result); });
    guarded("与账务核对", result, [&] { checkLedger(books, period, result); });
  });
  sortByRule(result.findings);
  return result;
}

// The engine's own check reads every page and takes as long as all rules together: it runs beside them.
CheckResult checkBooks(const BooksToCheck& books) {
  ReadBooks data(books.dataFile);
  auto integrity = std::async(std::launch::async, integrityOf, books.dataFile);
  CheckResult result = checkData(data, books.dataFile, books.date);
  guarded(kDataFile, result, [&] { addIntegrity(integrity.get(), kDataFile, result); });
  checkSystemFile(books.systemFile, result);
  sortByRule(result.findings);
  return result;
}

}  // namespace zelkor
