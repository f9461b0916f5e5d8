#include "faults/Program.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "support/Paths.h"

namespace zelkor::test {
namespace {

[[noreturn]] void become(const std::vector<std::string>& arguments, unsigned long largestFile, int errors) {
  const int nothing = ::open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO}) ::dup2(nothing, stream);
  ::dup2(errors, STDERR_FILENO);
  if (largestFile > 0) {
    const rlimit limit{largestFile, largestFile};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, SIG_IGN);
  }
  std::string program = test::zelkorctlProgram();
  std::vector<char*> words{program.data()};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
  ::_exit(127);
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments, unsigned long largestFile)
    : errors_(std::tmpfile()) {
  process_ = ::fork();
  if (process_ == 0) become(arguments, largestFile, ::fileno(errors_.get()));
}

Program::~Program() {
  if (process_ <= 0) return;
  ::kill(process_, SIGKILL);
  wait();
}

int Program::wait() {
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool Program::killAfter(std::chrono::microseconds delay) {
  std::this_thread::sleep_for(delay);
  ::kill(process_, SIGKILL);
  return wait() == -1;
}

std::string Program::errors() const {
  std::array<char, 4096> buffer{};
  const ssize_t count = ::pread(::fileno(errors_.get()), buffer.data(), buffer.size(), 0);
  return count < 0 ? std::string() : std::string(buffer.data(), static_cast<std::size_t>(count));
}

int runProgram(const std::vector<std::string>& arguments) {
  return Program(arguments).wait();
}

}  // namespace zelkor::test
