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

bool isUnknownName(const RuntimeError& error) {
  return error.is(ErrorNumber::CannotOpenTableOrQuery) || error.is(ErrorNumber::TooFewParameters);
}

bool isMissingNamed(const CheckResult& result) {
  return std::ranges::any_of(
      result.findings, [](const Finding& one) { return one.rule->code == "F02" || one.rule->code == "F03"; });
}

/// Does a part of the check. What fails because a table is not there, which has been told, is a note;
/// anything else is a finding.
void guarded(const std::string& part, CheckResult& result, const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    const std::string told = part + " 没有检查：" + error.what();
    if (isUnknownName(error) && isMissingNamed(result)) {
      result.notes.push_back(told);
    } else {
      result.findings.push_back({.rule = findCheckRule("F05"), .place = part, .detail = error.what()});
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
      guarded("规则 " + std::string(rule.code), result, [&] { ask(books, rule, period, result); });
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
