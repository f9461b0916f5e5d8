#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/Golden.h"

namespace zelkor::test {

/// The names of the .txt files in a folder below tests/store, in their order.
inline std::vector<std::string> caseFiles(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(testFolder() / "store" / folder))
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

/// The lines of such a file that are not empty.
inline std::vector<std::string> linesOf(const std::string& folder, const std::string& name) {
  auto lines = Split(readFile(testFolder() / "store" / folder / (name + ".txt")), '\n');
  std::erase(lines, "");
  return lines;
}

inline std::string nameOfFile(const testing::TestParamInfo<std::string>& file) {
  std::string name = file.param;
  std::ranges::replace(name, '-', '_');
  return name;
}

}  // namespace zelkor::test
