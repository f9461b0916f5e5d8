#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"

namespace zelkor {

/// What came of the last check of a month.
struct KeptCheck {
  DateTime time;
  long errors = 0;
  long warnings = 0;
  long notes = 0;
  std::string work;  // the counts of the month's steps then

  bool operator==(const KeptCheck&) const = default;
};

/// The checks that a person has made, the last one of each month of an account set, in a text file of the
/// person's own: the books themselves do not tell. What cannot be read is as if it were not there; what
/// cannot be written is known as long as this is.
class CheckMemory {
 public:
  /// Beside the list of account sets.
  static std::filesystem::path usualFile();

  explicit CheckMemory(std::filesystem::path file) : file_(std::move(file)) {}

  /// Of the month of that day.
  std::optional<KeptCheck> lastOf(const std::string& dataFile, const std::string& account,
                                  DateTime day) const;
  void keep(const std::string& dataFile, const std::string& account, DateTime day, const KeptCheck& check);

 private:
  std::filesystem::path file_;
  std::vector<std::vector<std::string>> unwritten_;  // lines of the file
};

}  // namespace zelkor
