#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zelkor {

/// How much a finding matters. A note tells of what the system itself leaves behind: nothing is to be put
/// right, but whoever reads the figures should know.
enum class Severity : std::uint8_t { Error, Warning, Note };

/// What there has to be for a rule to be asked.
enum class RuleTime : std::uint8_t {
  Always,
  Run,         // a month of the year was run
  LastRun,     // and no later month: the allocation is that run's
  RunOfMonth,  // and it is the month that is checked
  Closed,      // a month of the books' first year was closed
};

/// One thing that is true of sound books.
struct CheckRule {
  std::string_view code;  // "C01"; the letter is the part of the books
  Severity severity = Severity::Error;
  std::string_view meaning;      // what a finding says
  std::string_view remedy;       // how it is put right
  std::string_view origin = {};  // how the system's own work leads there; empty where it cannot
  RuleTime time = RuleTime::Always;
  /// One query of the dialect whose rows are findings: columns card, place, period, amount, detail, each
  /// where it has something to say, and code where it finds for other rules, too. Words in braces are filled
  /// in (CheckPeriod::filled). Empty where the rule is no query.
  std::string_view statement = {};
};

/// The rules in the order in which they are asked and told.
std::span<const CheckRule> checkRules();

/// The rule of that code, or nullptr.
const CheckRule* findCheckRule(std::string_view code);

/// "错误", "警告" or "说明".
std::string_view severityName(Severity severity);

// The parts of the table.
std::span<const CheckRule> fileRules();
std::span<const CheckRule> cardRules();
std::span<const CheckRule> monthRules();
std::span<const CheckRule> voucherRules();

}  // namespace zelkor
