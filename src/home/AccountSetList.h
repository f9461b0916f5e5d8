#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"

namespace zelkor {

/// An account set that a person has worked with; never a password.
struct KnownAccountSet {
  std::string dataFile;
  std::string systemFile;
  std::string account;
  std::string name;
  std::string unit;
  std::string user;  // who worked with it last
  DateTime lastUsed;

  bool isSame(const KnownAccountSet& other) const {
    return dataFile == other.dataFile && account == other.account;
  }
  bool operator==(const KnownAccountSet&) const = default;
};

/// The account sets that a person knows, the one used last first, in a text file of the person's own. A line
/// that cannot be read is left out, and the file kept beside before it is written again.
class AccountSetList {
 public:
  /// `<configuration folder>/zelkor/account-sets.tsv`.
  static std::filesystem::path usualFile();

  /// Reads the file; one that is not there is an empty list.
  explicit AccountSetList(std::filesystem::path file);

  const std::filesystem::path& file() const { return file_; }
  const std::vector<KnownAccountSet>& sets() const { return sets_; }
  /// Lines of the file that could not be read.
  std::size_t unreadable() const { return unreadable_; }

  /// Takes the set in, in the place of the same one, and writes the file. Other programs may have
  /// written it meanwhile: what they have put in stays. Error 57 when it cannot be written; the list itself
  /// is right then.
  void remember(const KnownAccountSet& set);
  /// Takes it out; its files are not touched.
  void forget(const KnownAccountSet& set);

 private:
  void read();
  void sort();
  void change(const std::function<void()>& action);
  void write() const;

  std::filesystem::path file_;
  std::vector<KnownAccountSet> sets_;
  std::size_t unreadable_ = 0;
};

}  // namespace zelkor
