#pragma once

#include <filesystem>
#include <string>

namespace zelkor {

struct AccountSetOptions {
  std::string account = "001";
  int year = 2020;
  int month = 1;        // opening month
  bool sample = false;  // sample archives; the set then counts as initialised
  // What screens and reports call the set, whose it is, and who is in charge; empty for words that say so.
  std::string name = {};
  std::string unit = {};
  std::string manager = {};
};

/// Writes `directory`/ZkData.Mdb and `directory`/ZkSystem.Mdb: schema, template rows, account header. Raises
/// RuntimeError when a file is there already or cannot be written; leaves nothing behind then.
void createAccountSet(const std::filesystem::path& directory, const AccountSetOptions& options);

}  // namespace zelkor
