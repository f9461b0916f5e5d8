#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelkor {

/// The folder in which programs keep what they know of a person: $XDG_CONFIG_HOME or ~/.config.
std::filesystem::path configurationFolder();

/// A small text file of the person's own, which no work depends on: lines of as many fields, the newest
/// first. What cannot be read or written is as if it were not there.
class KeptLines {
 public:
  using Line = std::vector<std::string>;

  KeptLines(std::filesystem::path file, std::string_view heading, std::size_t fields)
      : file_(std::move(file)), heading_(heading), fields_(fields) {}

  std::vector<Line> read() const;
  /// Keeps no more than a few hundred. A line with a tab or a line break in a field is left out. Whether it
  /// could be written.
  bool write(const std::vector<Line>& lines) const;

 private:
  std::filesystem::path file_;
  std::string_view heading_;
  std::size_t fields_;
};

}  // namespace zelkor
