#include "audit/CheckRule.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace zelkor {
namespace {

std::vector<CheckRule> allRules() {
  std::vector<CheckRule> rules;
  for (auto part : {fileRules, cardRules, monthRules, voucherRules})
    std::ranges::copy(part(), std::back_inserter(rules));
  return rules;
}

}  // namespace

std::span<const CheckRule> checkRules() {
  static const std::vector<CheckRule> rules = allRules();
  return rules;
}

const CheckRule* findCheckRule(std::string_view code) {
  const auto rules = checkRules();
  const auto found = std::ranges::find(rules, code, &CheckRule::code);
  return found == rules.end() ? nullptr : &*found;
}

std::string_view severityName(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "错误";
    case Severity::Warning:
      return "警告";
    case Severity::Note:
      return "说明";
  }
  return {};
}

}  // namespace zelkor
