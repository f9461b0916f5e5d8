#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/jet/JetFileWriter.h"

namespace zelkor::bench {

/// A Jet file of many tables like the module's own: numbers and names of cards and departments, amounts,
/// dates, remarks. The same rows each time.
struct JetAccounts {
  std::filesystem::path file;
  std::vector<std::string> tables;
  long rows = 0;  // of all tables

  JetAccounts(std::filesystem::path path, test::JetVersion version, int tables, long rowsEach);
};

}  // namespace zelkor::bench
