#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace zelkor::test {

struct ProgramResult {
  int status = -1;  // -1 when it was killed
  std::string output;
  std::string errors;
};

struct ProgramOptions {
  std::string display{};          // an X server for the windows; without one they are drawn nowhere
  unsigned long largestFile = 0;  // bytes up to which the system lets a file grow: a full disk; 0: no limit
};

/// A run of one of the real programs as a process of its own, with `home` as its directory for temporary
/// files, so that its lock is its own too. Standard input stays open and silent until the end of it is asked
/// for.
class ProgramRun {
 public:
  ProgramRun(const std::string& program, const std::vector<std::string>& arguments,
             const std::filesystem::path& home, const ProgramOptions& options = {});
  ProgramRun(const ProgramRun&) = delete;
  ProgramRun& operator=(const ProgramRun&) = delete;
  ~ProgramRun();

  /// Waits until the program has printed `text`; false when it ends before.
  bool waitForOutput(const std::string& text);
  /// Reads what it printed to its end.
  ProgramResult finish();
  /// Gives what it has printed until then.
  ProgramResult kill();
  void signal(int number);
  pid_t id() const { return process_; }
  /// Kills it when it has run for this long.
  ProgramResult killAfter(std::chrono::microseconds delay);
  /// Closes the reading end of its standard output.
  void closeOutput();

 private:
  bool readMore();
  void closeInput();

  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::filesystem::path errorFile_;
  ProgramResult result_;
};

}  // namespace zelkor::test
