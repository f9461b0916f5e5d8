#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelkor {

struct CalledResult {
  std::string name;  // that the process was given
  int status = 0;    // 128 and the signal's number where one has ended it
  std::string output;
  std::string errors;
  std::chrono::steady_clock::duration time{};
};

/// Runs of this program with other words, under way at once, each a process of its own with no input. They
/// are told to end when the whole program goes before them.
class CalledProcesses {
 public:
  CalledProcesses();
  CalledProcesses(const CalledProcesses&) = delete;
  CalledProcesses& operator=(const CalledProcesses&) = delete;
  /// Tells all that are left to end, and waits for them; after 15 s they are killed.
  ~CalledProcesses();

  std::size_t count() const { return processes_.size(); }
  /// Error 57 when the system gives no process.
  void begin(const std::string& name, const std::vector<std::string>& words);
  /// Waits until one of them has ended and takes it out; nullopt when a signal has come first.
  std::optional<CalledResult> next();

 private:
  struct Process;
  using Processes = std::vector<std::unique_ptr<Process>>;

  Processes::iterator waitForOne(int orFor, std::chrono::milliseconds atMost);

  Processes processes_;
};

}  // namespace zelkor
