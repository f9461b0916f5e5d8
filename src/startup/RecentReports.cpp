#include "startup/RecentReports.h"

#include <string_view>
#include <utility>

#include "base/KeptLines.h"
#include "base/Text.h"

namespace zelkor {
namespace {

enum Field : std::size_t { DataFile, Account, Name, Conditions, Time, kFields };
constexpr char kBetween = ';';

KeptLines linesIn(const std::filesystem::path& file) {
  return {file, "# 固定资产：最近看过的报表 1", kFields};
}

KeptLines::Line lineOf(const RecentReport& report) {
  std::string conditions;
  for (const std::string& one : report.conditions)
    conditions += (conditions.empty() ? "" : std::string(1, kBetween)) + one;
  return {report.dataFile, report.account, report.name, conditions, report.time.toIso()};
}

std::optional<RecentReport> reportOf(const KeptLines::Line& line) {
  const auto time = parseIsoDate(line[Time]);
  if (!time) return std::nullopt;
  return RecentReport{
      line[DataFile], line[Account], line[Name],
      line[Conditions].empty() ? std::vector<std::string>() : Split(line[Conditions], kBetween), *time};
}

}  // namespace

std::filesystem::path RecentReports::usualFile() {
  return configurationFolder() / "zelkor" / "recent-reports.tsv";
}

std::vector<RecentReport> RecentReports::of(const std::string& dataFile, const std::string& account) const {
  std::vector<RecentReport> reports;
  for (const KeptLines::Line& line : linesIn(file_).read()) {
    auto report = reportOf(line);
    if (report && report->dataFile == dataFile && report->account == account)
      reports.push_back(std::move(*report));
  }
  return reports;
}

std::string inWords(const std::vector<std::string>& conditions) {
  static constexpr std::pair<std::string_view, std::string_view> kWords[] = {
      {"period=", ""},        {"period-to=", "至 "},         {"department=", "部门 "},
      {"category=", "类别 "}, {"department-level=", "部门"}, {"category-level=", "类别"}};
  std::string words;
  for (const std::string& text : conditions) {
    for (const auto& [key, word] : kWords) {
      if (!text.starts_with(key)) continue;
      words += (words.empty() ? "" : " ") + std::string(word) + text.substr(key.size());
    }
  }
  return words;
}

bool RecentReports::remember(const RecentReport& report) {
  const KeptLines file = linesIn(file_);
  std::vector<KeptLines::Line> lines = file.read();
  std::erase_if(lines, [&](const KeptLines::Line& line) {
    const auto known = reportOf(line);
    return !known || known->isSame(report);
  });
  lines.insert(lines.begin(), lineOf(report));
  return file.write(lines);
}

}  // namespace zelkor
