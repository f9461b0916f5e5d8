#include "home/CheckMemory.h"

#include <charconv>
#include <vector>

#include "base/Format.h"
#include "base/KeptLines.h"
#include "home/AccountSetList.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

enum Field : std::size_t { DataFile, Account, Month, Time, Errors, Warnings, Notes, Work, kFields };

KeptLines linesIn(const std::filesystem::path& file) {
  return {file, "# 固定资产工作台：各账套各月最近一次检查 1", kFields};
}

std::string monthOf(DateTime day) {
  return Format(day, "yyyy-mm");
}

bool isOf(const KeptLines::Line& line, const std::string& dataFile, const std::string& account,
          DateTime day) {
  return line[DataFile] == dataFile && line[Account] == account && line[Month] == monthOf(day);
}

long numberOf(const std::string& text) {
  long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::filesystem::path CheckMemory::usualFile() {
  return AccountSetList::usualFile().parent_path() / "checks.tsv";
}

std::optional<KeptCheck> CheckMemory::lastOf(const std::string& dataFile, const std::string& account,
                                             DateTime day) const {
  std::vector<KeptLines::Line> lines = linesIn(file_).read();
  lines.insert(lines.begin(), unwritten_.begin(), unwritten_.end());
  for (const KeptLines::Line& line : lines) {
    const auto time = parseIsoDate(line[Time]);
    if (!time || !isOf(line, dataFile, account, day)) continue;
    return KeptCheck{*time, numberOf(line[Errors]), numberOf(line[Warnings]), numberOf(line[Notes]),
                     line[Work]};
  }
  return std::nullopt;
}

void CheckMemory::keep(const std::string& dataFile, const std::string& account, DateTime day,
                       const KeptCheck& check) {
  const KeptLines file = linesIn(file_);
  std::vector<KeptLines::Line> lines = file.read();
  for (auto* known : {&lines, &unwritten_})
    std::erase_if(*known, [&](const auto& line) { return isOf(line, dataFile, account, day); });
  lines.insert(lines.begin(), {dataFile, account, monthOf(day), check.time.toIso(), sql(check.errors),
                               sql(check.warnings), sql(check.notes), check.work});
  if (!file.write(lines)) unwritten_.push_back(lines.front());
}

}  // namespace zelkor
