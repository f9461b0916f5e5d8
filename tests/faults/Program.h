#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace zelkor::test {

/// A run of zelkorctl as a process of its own. What it prints on standard output is thrown away.
class Program {
 public:
  /// Starts it. `largestFile` in bytes, when not 0, is where the system refuses to let a file grow: a full
  /// disk.
  explicit Program(const std::vector<std::string>& arguments, unsigned long largestFile = 0);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  /// Waits for its end; exit status, or -1 when it was killed.
  int wait();
  /// Kills it when it has run for this long; true when it was still running then.
  bool killAfter(std::chrono::microseconds delay);
  /// What it has printed on standard error so far.
  std::string errors() const;

 private:
  struct Closer {
    void operator()(FILE* file) const { std::fclose(file); }
  };

  pid_t process_ = -1;
  std::unique_ptr<FILE, Closer> errors_;
};

/// Runs zelkorctl to its end; the exit status.
int runProgram(const std::vector<std::string>& arguments);

}  // namespace zelkor::test
