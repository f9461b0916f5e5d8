#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/DateTime.h"

namespace zelkor {

/// Between the numbers of a system file that has several.
inline constexpr char kBetweenAccounts = '+';

/// What is known of one of the two files of a backup.
struct BackedUpFile {
  std::uint64_t bytes = 0;
  std::string checksum = {};                                 // SHA-256
  std::vector<std::pair<std::string, std::int64_t>> rows{};  // of each table
};

/// What lies beside the files of a backup and says what they are.
struct BackupNote {
  std::string account = {};
  std::string name = {};     // of the account set
  std::string unit = {};     // whose it is
  std::string month = {};    // the open one, "2020-01"; empty where none is
  DateTime time = {};        // when it was made
  std::string label = {};    // whoever made it
  std::string program = {};  // the version that made it
  std::string machine = {};  // where the original lies, which is what tells sets of one number apart
  std::string source = {};
  int revision = 0;        // of the books
  std::int64_t cards = 0;  // in use at the end of the open month
  std::string value = {};  // what they come to; empty, as the next, where the books do not allow to say it
  std::string accumulated = {};
  BackedUpFile data = {};
  BackedUpFile system = {};
};

/// The text of the note, which bears its own checksum.
std::string textOf(const BackupNote& note);
/// nullopt for a text that is no such note, or was changed.
std::optional<BackupNote> backupNoteOf(std::string_view text);

/// The rows of all tables of the file.
std::int64_t rowsOf(const BackedUpFile& file);

}  // namespace zelkor
