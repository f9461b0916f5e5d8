#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"

namespace zelkor {

/// A report that a person has looked at, with its conditions as a call takes them: "period=2020.01".
struct RecentReport {
  std::string dataFile;
  std::string account;
  std::string name;
  std::vector<std::string> conditions;
  DateTime time;

  bool isSame(const RecentReport& other) const {
    return dataFile == other.dataFile && account == other.account && name == other.name &&
           conditions == other.conditions;
  }
};

/// Its conditions for people: "2020.01 至 2020.03 部门 301".
std::string inWords(const std::vector<std::string>& conditions);

/// The reports that a person has looked at last, in a text file of the person's own.
class RecentReports {
 public:
  static std::filesystem::path usualFile();

  explicit RecentReports(std::filesystem::path file) : file_(std::move(file)) {}

  /// Of an account set, the newest first.
  std::vector<RecentReport> of(const std::string& dataFile, const std::string& account) const;
  /// Puts it before the others, in the place of the same one. Whether that could be written.
  bool remember(const RecentReport& report);

 private:
  std::filesystem::path file_;
};

}  // namespace zelkor
