#include "apps/zelkorctl/CalledProcess.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr const char* kThisProgram = "/proc/self/exe";

[[noreturn]] void raise() {
  throw RuntimeError(ErrorNumber::DeviceIo, std::string("不能启动进程：") + std::strerror(errno));
}

/// What a process prints is kept in memory that looks like a file: nobody has to read along.
int newMemory() {
  const int memory = ::memfd_create("zelkorctl", MFD_CLOEXEC);
  if (memory < 0) raise();
  return memory;
}

std::string contentOfMemory(int memory) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 0;
       (count = ::pread(memory, buffer.data(), buffer.size(), static_cast<off_t>(text.size()))) > 0;)
    text.append(buffer.data(), static_cast<std::size_t>(count));
  return text;
}

[[noreturn]] void become(std::vector<char*>& words, int output, int errors) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  const int nothing = ::open("/dev/null", O_RDONLY);
  ::dup2(nothing, STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(errors, STDERR_FILENO);
  ::execv(kThisProgram, words.data());
  ::_exit(kSignalStatus - 1);
}

}  // namespace

CalledProcess::CalledProcess(const std::vector<std::string>& words)
    : output_(newMemory()), errors_(newMemory()), start_(std::chrono::steady_clock::now()) {
  std::string name = "zelkorctl";
  std::vector<char*> pointers{name.data()};
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  process_ = ::fork();
  if (process_ < 0) raise();
  if (process_ == 0) become(pointers, output_, errors_);
}

CalledProcess::~CalledProcess() {
  if (process_ > 0) {
    ::kill(process_, SIGTERM);
    while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  if (output_ >= 0) ::close(output_);
  if (errors_ >= 0) ::close(errors_);
}

CalledResult CalledProcess::result() {
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = -1;
  return {.status = WIFSIGNALED(status) ? kSignalStatus + WTERMSIG(status) : WEXITSTATUS(status),
          .output = contentOfMemory(output_),
          .errors = contentOfMemory(errors_),
          .time = std::chrono::steady_clock::now() - start_};
}

pid_t waitForAny() {
  siginfo_t ended{};
  return ::waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT) == 0 ? ended.si_pid : -1;
}

}  // namespace zelkor
