#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace zelkor {

struct CalledResult {
  int status = 0;  // 128 and the signal's number where one has ended it
  std::string output;
  std::string errors;
  std::chrono::steady_clock::duration time{};
};

/// This program once more, in a process of its own with other words and no input. It is told to end when this
/// object, or the whole program, goes before it.
class CalledProcess {
 public:
  /// Error 57 when the system gives none.
  explicit CalledProcess(const std::vector<std::string>& words);
  CalledProcess(CalledProcess&& other) noexcept
      : process_(std::exchange(other.process_, -1)),
        output_(std::exchange(other.output_, -1)),
        errors_(std::exchange(other.errors_, -1)),
        start_(other.start_) {}
  CalledProcess& operator=(CalledProcess&&) = delete;
  ~CalledProcess();

  pid_t id() const { return process_; }
  /// Once the process has ended; see waitForAny.
  CalledResult result();

 private:
  pid_t process_ = -1;
  int output_ = -1;
  int errors_ = -1;
  std::chrono::steady_clock::time_point start_;
};

/// Waits until one of the processes has ended, without taking its result; -1 when a signal came first.
pid_t waitForAny();

}  // namespace zelkor
