#include "support/ProgramRun.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <utility>

#include "support/Support.h"

namespace zelkor::test {
namespace {

struct Pipe {
  int reading = -1;
  int writing = -1;
};

Pipe newPipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {ends[0], ends[1]};
}

std::filesystem::path newErrorFile(const std::filesystem::path& home) {
  static std::atomic<int> count{0};
  return home / ("stderr-" + std::to_string(++count));
}

[[noreturn]] void become(const std::string& program, const std::vector<std::string>& arguments,
                         const std::filesystem::path& home, const ProgramOptions& options) {
  const std::string& display = options.display;
  if (options.largestFile > 0) {
    const rlimit limit{options.largestFile, options.largestFile};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, SIG_IGN);
  }
  ::setenv("TMPDIR", home.c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", home.c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", home.c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", display.empty() ? "offscreen" : "xcb", 1);
  if (!display.empty()) ::setenv("DISPLAY", display.c_str(), 1);
  std::vector<char*> words{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
  ::_exit(127);
}

}  // namespace

ProgramRun::ProgramRun(const std::string& program, const std::vector<std::string>& arguments,
                       const std::filesystem::path& home, const ProgramOptions& options)
    : errorFile_(newErrorFile(home)) {
  const Pipe input = newPipe();
  const Pipe output = newPipe();
  const int errors = ::open(errorFile_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    ::dup2(input.reading, STDIN_FILENO);
    ::dup2(output.writing, STDOUT_FILENO);
    ::dup2(errors, STDERR_FILENO);
    become(program, arguments, home, options);
  }
  ::close(input.reading);
  ::close(output.writing);
  ::close(errors);
  input_ = input.writing;
  output_ = output.reading;
}

ProgramRun::~ProgramRun() {
  if (process_ > 0) kill();
  closeOutput();
}

bool ProgramRun::readMore() {
  char buffer[4096];
  const ssize_t count = output_ < 0 ? 0 : ::read(output_, buffer, sizeof buffer);
  if (count > 0) result_.output.append(buffer, static_cast<std::size_t>(count));
  return count > 0;
}

bool ProgramRun::waitForOutput(const std::string& text) {
  while (result_.output.find(text) == std::string::npos) {
    if (!readMore()) return false;
  }
  return true;
}

ProgramResult ProgramRun::finish() {
  closeInput();
  while (readMore()) {
  }
  int status = 0;
  ::waitpid(std::exchange(process_, -1), &status, 0);
  if (WIFEXITED(status)) result_.status = WEXITSTATUS(status);
  result_.errors = readFile(errorFile_);
  return result_;
}

ProgramResult ProgramRun::kill() {
  ::kill(process_, SIGKILL);
  return finish();
}

void ProgramRun::signal(int number) {
  ::kill(process_, number);
}

ProgramResult ProgramRun::killAfter(std::chrono::microseconds delay) {
  std::this_thread::sleep_for(delay);
  return kill();
}

void ProgramRun::closeInput() {
  if (input_ >= 0) ::close(std::exchange(input_, -1));
}

void ProgramRun::closeOutput() {
  if (output_ >= 0) ::close(std::exchange(output_, -1));
}

}  // namespace zelkor::test
