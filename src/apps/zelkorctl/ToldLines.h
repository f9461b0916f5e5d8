#pragma once

#include <chrono>
#include <ostream>
#include <string>
#include <utility>

#include "store/accountset/DbEngine.h"

namespace zelkor {

/// Lines that report saved rows, one by one. Each is printed when what it reports is on disk, those
/// of a moment together, so that a long file does not wait for the disk at every row.
class ToldLines {
 public:
  ToldLines(DbEngine& engine, std::ostream& output) : engine_(engine), output_(output) {}

  /// Takes a line, without its end.
  void add(const std::string& line) {
    lines_ += line + '\n';
    if (Clock::now() - told_ >= kLongestWait) tell();
  }
  /// Forces to disk what was written and prints the lines that wait, or never prints them where that fails.
  /// Before anything else is printed.
  void tell() {
    if (engine_.workspace().inTransaction()) return;  // nothing can be forced to disk inside one
    const std::string lines = std::exchange(lines_, {});
    engine_.flush();
    output_ << lines << std::flush;
    told_ = Clock::now();
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kLongestWait{50};

  DbEngine& engine_;
  std::ostream& output_;
  std::string lines_;
  Clock::time_point told_ = Clock::now();
};

}  // namespace zelkor
