#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "base/RuntimeError.h"
#include "base/TextGrid.h"

namespace zelkor {

inline void PrintTo(const DateTime& value, std::ostream* out) {
  *out << value.toIso();
}

namespace test {

/// A directory of its own that goes with the object.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zelkor-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory");
    path_ = pattern;
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

inline std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const std::filesystem::path& path, std::string_view text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  if (!out.flush()) throw std::runtime_error("cannot write " + path.string());
}

/// A day that exists; "2004-4-1" and "2004-4-1 9:05:00" are read alike.
inline DateTime day(std::string_view text) {
  const auto date = parseDate(text);
  if (!date) throw std::invalid_argument("no date: " + std::string(text));
  return *date;
}

/// Number of the runtime error that `action` ends with, 0 when it ends well.
template <typename Action>
int errorOf(Action&& action) {
  try {
    action();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

/// A grid as text: a line for each row, hidden ones included, its cells joined by "|".
inline std::string gridText(const TextGrid& grid) {
  std::string text;
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    for (std::size_t column = 0; column < grid.columns(); ++column)
      text += (column == 0 ? "" : "|") + grid.text(row, column);
    text += "\n";
  }
  return text;
}

/// A grid's texts, row by row, hidden rows and columns included: short to compare with a table.
inline std::vector<std::vector<std::string>> textsOf(const TextGrid& grid) {
  std::vector<std::vector<std::string>> rows(grid.rows());
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    for (std::size_t column = 0; column < grid.columns(); ++column)
      rows[row].push_back(grid.text(row, column));
  }
  return rows;
}

}  // namespace test
}  // namespace zelkor
