#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/Text.h"
#include "support/Paths.h"
#include "support/Support.h"

namespace zelkor::test {

/// The text is that of the golden file, named below tests/; with ZELKOR_REWRITE_GOLDEN it becomes that.
inline void expectGolden(const std::string& file, const std::string& found) {
  const std::filesystem::path golden = testFolder() / file;
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr) {
    writeFile(golden, found);
  } else {
    EXPECT_EQ(found, readFile(golden)) << file;
  }
}

/// The lines of a file of cases, named below tests/: their fields, which tabs part. Empty lines and those
/// that begin with "#" are left out; \n, \r, \t and \\ stand for what they are in C++.
inline std::vector<std::vector<std::string>> casesIn(const std::string& file) {
  std::vector<std::vector<std::string>> cases;
  for (const std::string& line : Split(readFile(testFolder() / file), '\n')) {
    if (line.empty() || line.front() == '#') continue;
    std::vector<std::string> fields{""};
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (line[i] == '\t') {
        fields.emplace_back();
      } else if (line[i] == '\\' && i + 1 < line.size()) {
        const char escaped = line[++i];
        fields.back() += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped == 'r' ? '\r' : escaped;
      } else {
        fields.back() += line[i];
      }
    }
    cases.push_back(std::move(fields));
  }
  return cases;
}

}  // namespace zelkor::test
