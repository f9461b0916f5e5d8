#include "apps/zelkorctl/CalledProcesses.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {  // the header does not say so itself
#include <sys/pidfd.h>
}

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

#include "base/EndSignals.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* kThisProgram = "/proc/self/exe";
constexpr milliseconds kWithoutEnd{-1};
// A program that is told to end may wait 10 s for a lock before it has written what it holds.
constexpr milliseconds kPatience{15'000};

[[noreturn]] void raise() {
  throw RuntimeError(ErrorNumber::DeviceIo, "不能启动进程：" + systemReason(errno));
}

/// What a process prints is kept in memory that looks like a file: nobody has to read along.
FileDescriptor newMemory() {
  FileDescriptor memory(::memfd_create("zelkorctl", MFD_CLOEXEC));
  if (!memory) raise();
  return memory;
}

std::string contentOfMemory(const FileDescriptor& memory) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 0;
       (count = ::pread(memory.get(), buffer.data(), buffer.size(), static_cast<off_t>(text.size()))) > 0;)
    text.append(buffer.data(), static_cast<std::size_t>(count));
  return text;
}

/// The signals that end a program are kept waiting while this lives: what is noted of them in a process that
/// has yet to become another program would be lost.
class SignalsHeldBack {
 public:
  SignalsHeldBack() {
    ::sigemptyset(&ends_);
    for (const int signal : kEnds) ::sigaddset(&ends_, signal);
    ::sigprocmask(SIG_BLOCK, &ends_, &before_);
  }
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
  ~SignalsHeldBack() { letCome(); }

  void letCome() const { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
  /// From now on they end this process; those that whoever started the program has had ignored stay so.
  void letEnd() const {
    for (const int signal : kEnds) {
      struct sigaction action {};
      ::sigaction(signal, nullptr, &action);
      if (action.sa_handler == SIG_IGN) continue;
      action = {};
      ::sigaction(signal, &action, nullptr);
    }
    letCome();
  }

 private:
  static constexpr std::array kEnds = {SIGTERM, SIGHUP};

  sigset_t ends_{};
  sigset_t before_{};
};

struct Output {
  int text;
  int errors;
};

[[noreturn]] void become(std::vector<char*>& words, const Output& output, pid_t parent,
                         const SignalsHeldBack& signals) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (::getppid() != parent) ::_exit(kSignalStatus + SIGTERM);  // it went before it could be watched
  signals.letEnd();
  const int nothing = ::open("/dev/null", O_RDONLY);
  ::dup2(nothing, STDIN_FILENO);
  ::dup2(output.text, STDOUT_FILENO);
  ::dup2(output.errors, STDERR_FILENO);
  ::execv(kThisProgram, words.data());
  ::_exit(kSignalStatus - 1);
}

/// The handle of a new process, which can be read from as soon as that has ended.
FileDescriptor started(const std::vector<std::string>& words, const Output& output) {
  std::string name = "zelkorctl";
  std::vector<char*> pointers{name.data()};
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  const pid_t parent = ::getpid();
  const SignalsHeldBack signals;
  const pid_t process = ::fork();
  if (process < 0) raise();
  if (process == 0) become(pointers, output, parent, signals);
  FileDescriptor handle(::pidfd_open(process, 0));
  if (handle) return handle;
  const int failure = errno;
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
  errno = failure;
  raise();
}

}  // namespace

struct CalledProcesses::Process {
  Process(std::string theName, const std::vector<std::string>& words)
      : name(std::move(theName)), handle(started(words, {output.get(), errors.get()})) {}

  void signal(int number) const { ::pidfd_send_signal(handle.get(), number, nullptr, 0); }
  /// Waits for it.
  int status() const {
    siginfo_t ended{};
    while (::waitid(P_PIDFD, static_cast<id_t>(handle.get()), &ended, WEXITED) != 0 && errno == EINTR) {
    }
    return ended.si_code == CLD_EXITED ? ended.si_status : kSignalStatus + ended.si_status;
  }

  std::string name;
  FileDescriptor output = newMemory();
  FileDescriptor errors = newMemory();
  steady_clock::time_point start = steady_clock::now();
  FileDescriptor handle;
};

CalledProcesses::CalledProcesses() = default;

// Together: one that takes long does not keep the others from ending.
CalledProcesses::~CalledProcesses() {
  for (const auto& process : processes_) process->signal(SIGTERM);
  const auto end = steady_clock::now() + kPatience;
  while (!processes_.empty()) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now());
    if (left <= milliseconds::zero()) break;
    const auto ended = waitForOne(-1, left);
    if (ended == processes_.end()) continue;
    (*ended)->status();
    processes_.erase(ended);
  }
  for (const auto& process : processes_) process->signal(SIGKILL);
  for (const auto& process : processes_) process->status();
}

void CalledProcesses::begin(const std::string& name, const std::vector<std::string>& words) {
  processes_.push_back(std::make_unique<Process>(name, words));
}

std::optional<CalledResult> CalledProcesses::next() {
  const auto ended = waitForOne(endSignalDescriptor(), kWithoutEnd);
  if (ended == processes_.end()) return std::nullopt;
  const std::unique_ptr<Process> process = std::move(*ended);
  processes_.erase(ended);
  const int status = process->status();
  return CalledResult{.name = process->name,
                      .status = status,
                      .output = contentOfMemory(process->output),
                      .errors = contentOfMemory(process->errors),
                      .time = steady_clock::now() - process->start};
}

/// The end where the time is over, a signal has come or the other descriptor could be read from first.
CalledProcesses::Processes::iterator CalledProcesses::waitForOne(int orFor, milliseconds atMost) {
  std::vector<pollfd> places;
  for (const auto& process : processes_) places.push_back({process->handle.get(), POLLIN, 0});
  places.push_back({orFor, POLLIN, 0});
  if (::poll(places.data(), places.size(), static_cast<int>(atMost.count())) <= 0) return processes_.end();
  const auto ended =
      std::find_if(places.begin(), places.end() - 1, [](const pollfd& place) { return place.revents != 0; });
  return processes_.begin() + (ended - places.begin());
}

}  // namespace zelkor
