#include "apps/zelkorctl/CheckCommand.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <utility>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/JobArguments.h"
#include "audit/BookCheck.h"
#include "base/Csv.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "startup/Arguments.h"
#include "store/accountset/ReadingDatabase.h"
#include "store/engine/Statement.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {
namespace {

constexpr int kFound = 1;
constexpr int kWrongUsage = 2;
constexpr int kReconciliation = 21;
/// Findings of one rule that the text shows; the rest is counted.
constexpr std::size_t kMostShown = 20;

std::string amountText(const Finding& finding) {
  return finding.amount ? Format(finding.amount->toDouble(), "0.00##") : std::string();
}

std::string lineOf(const Finding& finding) {
  std::string line;
  const auto add = [&line](const std::string& text) { line += (line.empty() ? "    " : "  ") + text; };
  if (!finding.card.empty()) add("卡片 " + finding.card);
  if (!finding.place.empty()) add(finding.place);
  if (finding.period != 0) add(sql(finding.period, " 月"));
  if (finding.amount) add("金额 " + amountText(finding));
  if (!finding.detail.empty()) add(finding.detail);
  return line;
}

void printRule(const CheckRule& rule, std::span<const Finding> findings, std::ostream& output) {
  output << rule.code << ' ' << severityName(rule.severity) << "  " << rule.meaning << "（" << findings.size()
         << "）\n";
  for (const Finding& finding : findings.first(std::min(findings.size(), kMostShown)))
    output << lineOf(finding) << '\n';
  if (findings.size() > kMostShown)
    output << "    另有 " << findings.size() - kMostShown << " 项，用 --csv 或 --json 全部列出\n";
  output << "  处理：" << rule.remedy << '\n';
  if (!rule.origin.empty()) output << "  由来：" << rule.origin << '\n';
}

long countOf(const CheckResult& result, Severity severity) {
  return std::ranges::count_if(result.findings,
                               [=](const Finding& one) { return one.rule->severity == severity; });
}

void printText(const CheckResult& result, std::ostream& output) {
  for (auto first = result.findings.begin(); first != result.findings.end();) {
    const CheckRule& rule = *first->rule;
    const auto last =
        std::find_if(first, result.findings.end(), [&](const Finding& one) { return one.rule != &rule; });
    printRule(rule, {first, last}, output);
    first = last;
  }
  for (const std::string& note : result.notes) output << "注意：" << note << '\n';
  output << "检查完成：错误 " << countOf(result, Severity::Error) << " 项，警告 "
         << countOf(result, Severity::Warning) << " 项，说明 " << countOf(result, Severity::Note) << " 项\n";
}

void printCsv(const CheckResult& result, std::ostream& output) {
  output << "规则,级别,卡片编号,位置,月份,金额,内容,含义,处理,由来\r\n";
  for (const Finding& one : result.findings) {
    const std::string fields[]{std::string(one.rule->code),
                               std::string(severityName(one.rule->severity)),
                               one.card,
                               one.place,
                               one.period == 0 ? "" : std::to_string(one.period),
                               amountText(one),
                               one.detail,
                               std::string(one.rule->meaning),
                               std::string(one.rule->remedy),
                               std::string(one.rule->origin)};
    const char* separator = "";
    for (const std::string& field : fields) {
      output << separator << csvField(field);
      separator = ",";
    }
    output << "\r\n";
  }
}

nlohmann::ordered_json jsonOf(const Finding& one) {
  nlohmann::ordered_json object{{"code", one.rule->code}, {"severity", severityName(one.rule->severity)}};
  object["card"] = one.card;
  object["place"] = one.place;
  object["month"] = one.period == 0 ? nlohmann::ordered_json() : nlohmann::ordered_json(one.period);
  object["amount"] = one.amount ? nlohmann::ordered_json(one.amount->toDouble()) : nlohmann::ordered_json();
  object["detail"] = one.detail;
  object["meaning"] = one.rule->meaning;
  object["remedy"] = one.rule->remedy;
  object["origin"] = one.rule->origin;
  return object;
}

void printJson(const CheckResult& result, std::ostream& output) {
  nlohmann::ordered_json whole{{"sound", result.isSound()}, {"findings", nlohmann::ordered_json::array()}};
  for (const Finding& one : result.findings) whole["findings"].push_back(jsonOf(one));
  whole["notes"] = result.notes;
  output << whole.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

/// The books that the call names; nothing where its argument string cannot be read.
std::optional<BooksToCheck> booksOf(const Asked& asked, std::string& account, std::ostream& problems) {
  std::optional<BooksToCheck> books;
  const JobRun job = jobOf(asked, kReconciliation);
  try {
    inRun(job, problems, [&](RunContext& context) {
      ReadCommandArgs(context, job.arguments);
      books = {.dataFile = context.gstrZtFile, .systemFile = context.gstrZkSysFile, .date = context.gdOpDate};
      account = context.gstrAccountId;
      return 0;
    });
  } catch (const RuntimeError& error) {
    problems << error.what() << '\n';
  } catch (const EndProgram&) {
    // told in a box
  }
  return books;
}

/// What is to be said of the month that is asked for.
struct AboutMonth {
  std::string refusal;
  std::string remark;
};

/// What keeps the month from being read is told by the check itself.
AboutMonth aboutMonth(const BooksToCheck& books, const std::string& account) {
  AboutMonth about;
  try {
    Database data = openDatabaseForReading(books.dataFile);
    about.refusal = whyBeforeBooks(data, books.date);
    if (books.systemFile.empty()) return about;
    Database system = openDatabaseForReading(books.systemFile);
    const auto open = openPeriod(data, system, account);
    const bool isAhead =
        open && std::pair(books.date.year(), books.date.month()) > std::pair(open->year, open->month);
    if (isAhead) about.remark = remarkOnMonth(*open, books.date);
  } catch (const RuntimeError&) {
    // as it is
  }
  return about;
}

}  // namespace

int checkCommand(const Asked& asked, std::ostream& output, std::ostream& problems) {
  if (asked.json && asked.csv) {
    problems << "--json 与 --csv 只能给出一个\n";
    return kWrongUsage;
  }
  std::string account;
  const auto books = booksOf(asked, account, problems);
  if (!books) return kWrongUsage;
  const AboutMonth about = aboutMonth(*books, account);
  if (!about.refusal.empty()) {
    problems << about.refusal << '\n';
    return kWrongUsage;
  }
  CheckResult result = checkBooks(*books);
  if (!about.remark.empty()) result.notes.push_back(about.remark);
  (asked.json ? printJson : asked.csv ? printCsv : printText)(result, output);
  return result.isSound() ? 0 : kFound;
}

}  // namespace zelkor
