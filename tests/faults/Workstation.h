#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "faults/KeptAccountSet.h"
#include "startup/RunContext.h"

namespace zelkor::test {

/// Lets workstations begin at one moment.
class StartSignal {
 public:
  StartSignal();
  StartSignal(const StartSignal&) = delete;
  StartSignal& operator=(const StartSignal&) = delete;
  ~StartSignal();

  void give();
  /// In the process that waits for it.
  void await();

 private:
  int reading_ = -1;
  int writing_ = -1;
};

/// A process of its own with a run context on an account set, as a bookkeeper's program is one. What it does
/// it tells line by line; so it does with each box: "box: text".
class Workstation {
 public:
  using Tell = std::function<void(const std::string& line)>;
  using Work = std::function<void(RunContext& context, const Tell& tell)>;

  /// Operating date 2020-01-15, system date 2020-02-01. Opens the account set, and works when the signal is
  /// given.
  Workstation(const KeptAccountSet& set, const std::string& user, StartSignal& start, const Work& work);
  Workstation(const Workstation&) = delete;
  Workstation& operator=(const Workstation&) = delete;
  ~Workstation();

  /// The next line, without its end; waits for it. False when the process has told everything.
  bool nextLine(std::string& line);
  /// All lines that are left, and its end; the exit status as the program has it, -1 when it was killed.
  int finish(std::vector<std::string>& lines);

 private:
  pid_t process_ = -1;
  int output_ = -1;
  std::string read_;
};

}  // namespace zelkor::test
