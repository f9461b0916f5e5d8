#include "home/Findings.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/Csv.h"
#include "base/Format.h"

namespace zelkor {
namespace {

using Json = nlohmann::json;

std::string textOf(const Json& finding, const char* name) {
  const auto found = finding.find(name);
  if (found == finding.end() || found->is_null()) return {};
  if (found->is_string()) return found->get<std::string>();
  return found->is_number_integer() ? std::to_string(found->get<long>())
                                    : Format(found->get<double>(), "0.00##");
}

ToldFinding findingOf(const Json& finding) {
  return {.code = textOf(finding, "code"),
          .severity = textOf(finding, "severity"),
          .card = textOf(finding, "card"),
          .place = textOf(finding, "place"),
          .month = textOf(finding, "month"),
          .amount = textOf(finding, "amount"),
          .detail = textOf(finding, "detail"),
          .meaning = textOf(finding, "meaning"),
          .remedy = textOf(finding, "remedy"),
          .origin = textOf(finding, "origin")};
}

}  // namespace

long Findings::countOf(std::string_view severity) const {
  return std::ranges::count(all, severity, &ToldFinding::severity);
}

std::optional<Findings> findingsOf(const std::string& json) {
  const Json whole = Json::parse(json, nullptr, false);
  if (!whole.is_object() || !whole.contains("sound") || !whole.contains("findings") ||
      !whole["findings"].is_array())
    return std::nullopt;
  Findings findings{.sound = whole["sound"] == true, .all = {}, .notes = {}};
  for (const Json& one : whole["findings"]) findings.all.push_back(findingOf(one));
  if (whole.contains("notes"))
    for (const Json& note : whole["notes"])
      if (note.is_string()) findings.notes.push_back(note.get<std::string>());
  return findings;
}

TextGrid gridOf(const Findings& findings) {
  constexpr std::size_t kAmountColumn = 6;
  TextGrid grid;
  grid.setHeader("规则|级别|含义|卡片编号|位置|月份|金额|内容");
  grid.setAlignment(kAmountColumn, Align::Right);
  for (const ToldFinding& one : findings.all)
    grid.addRow(
        {one.code, one.severity, one.meaning, one.card, one.place, one.month, one.amount, one.detail});
  return grid;
}

std::string explanationOf(const ToldFinding& finding) {
  std::string text = finding.code + " " + finding.severity + "　" + finding.meaning;
  if (!finding.detail.empty()) text += "\n内容：" + finding.detail;
  text += "\n处理：" + finding.remedy;
  if (!finding.origin.empty()) text += "\n由来：" + finding.origin;
  return text;
}

std::string csvOf(const Findings& findings) {
  std::string csv = "\xEF\xBB\xBF规则,级别,卡片编号,位置,月份,金额,内容,含义,处理,由来\r\n";
  for (const ToldFinding& one : findings.all) {
    std::string line;
    for (const std::string* field : {&one.code, &one.severity, &one.card, &one.place, &one.month, &one.amount,
                                     &one.detail, &one.meaning, &one.remedy, &one.origin})
      line += (line.empty() ? "" : ",") + spreadsheetField(*field);
    csv += line + "\r\n";
  }
  return csv;
}

std::optional<std::int16_t> screenAbout(const ToldFinding& finding) {
  constexpr std::int16_t kCards = 7;
  constexpr std::int16_t kDepreciationList = 19;
  constexpr std::int16_t kVouchers = 12;
  if (finding.code.starts_with('C')) return kCards;
  if (finding.code.starts_with('M')) return kDepreciationList;
  if (finding.code.starts_with('V') || finding.code.starts_with('L')) return kVouchers;
  return std::nullopt;
}

}  // namespace zelkor
