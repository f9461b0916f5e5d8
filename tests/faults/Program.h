#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace zelkor::test {

/// A run of zelkorctl as a process of its own. Its output is thrown away.
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

 private:
  pid_t process_ = -1;
};

/// Runs zelkorctl to its end; the exit status.
int runProgram(const std::vector<std::string>& arguments);

/// Every row of every table of a data file but the ones named, as sorted lines "table: cells". Autonumbers
/// are left out: they go on counting behind rows that were written before.
std::vector<std::string> contentOf(const std::string& dataFile, const std::vector<std::string>& without);

/// The lines that only one of two contents has, the first few of them.
std::string differenceOf(const std::vector<std::string>& a, const std::vector<std::string>& b);

/// True when the engine finds nothing wrong with the file.
bool isIntact(const std::string& dataFile);

}  // namespace zelkor::test
