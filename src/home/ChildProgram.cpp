#include "home/ChildProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <sstream>

#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kSignalled = 128;
constexpr int kRefused = 2;
constexpr off_t kEndOfErrors = 262144;

class SpawnActions {
 public:
  SpawnActions() { ::posix_spawn_file_actions_init(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  ~SpawnActions() { ::posix_spawn_file_actions_destroy(&actions_); }
  posix_spawn_file_actions_t* get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

[[noreturn]] void refuse(const std::string& program, int failure) {
  throw RuntimeError(
      failure == ENOENT ? ErrorNumber::FileNotFound : ErrorNumber::DeviceIo,
      "不能启动程序“" + program + "”：" + (failure == ENOENT ? "没有这个程序" : systemReason(failure)));
}

/// Nothing of ours but these two goes into the child: the other descriptors close themselves there.
pid_t spawned(const std::string& program, const std::vector<std::string>& arguments, int errors, int output) {
  std::vector<char*> words{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  SpawnActions actions;
  ::posix_spawn_file_actions_adddup2(actions.get(), errors, STDERR_FILENO);
  ::posix_spawn_file_actions_adddup2(actions.get(), output, STDOUT_FILENO);
  pid_t child = 0;
  const int failure = ::posix_spawn(&child, program.c_str(), actions.get(), nullptr, words.data(), ::environ);
  if (failure != 0) refuse(program, failure);
  return child;
}

std::string contentOf(const FileDescriptor& file, off_t from = 0) {
  std::string text;
  std::array<char, 4096> buffer{};
  ssize_t length = 0;
  while ((length =
              ::pread(file.get(), buffer.data(), buffer.size(), from + static_cast<off_t>(text.size()))) > 0)
    text.append(buffer.data(), static_cast<std::size_t>(length));
  return text;
}

}  // namespace

ChildProgram::ChildProgram(const std::string& program, const std::vector<std::string>& arguments)
    : errors_(::memfd_create("zelkor-errors", MFD_CLOEXEC)),
      output_(::memfd_create("zelkor-output", MFD_CLOEXEC)) {
  if (!errors_ || !output_) refuse(program, errno);
  const pid_t child = spawned(program, arguments, errors_.get(), output_.get());
  process_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
  if (!process_) refuse(program, errno);
}

std::string ChildProgram::endOfErrors() const {
  struct stat file {};
  if (::fstat(errors_.get(), &file) != 0) return {};
  return contentOf(errors_, std::max<off_t>(file.st_size - kEndOfErrors, 0));
}

ChildEnd ChildProgram::finish() {
  siginfo_t end{};
  while (::waitid(static_cast<idtype_t>(P_PIDFD), static_cast<id_t>(process_.get()), &end, WEXITED) != 0 &&
         errno == EINTR) {
  }
  const int status = end.si_code == CLD_EXITED ? end.si_status : kSignalled + end.si_status;
  return {status, contentOf(errors_), contentOf(output_)};
}

namespace {

/// What a program has told, without the name that the administrator's tool puts before it.
std::string inOneLine(const std::string& told) {
  constexpr std::string_view kTool = "zelkorctl: ";
  std::istringstream lines(told);
  std::string all;
  for (std::string line; std::getline(lines, line);)
    all += (all.empty() ? "" : " ") + (line.starts_with(kTool) ? line.substr(kTool.size()) : line);
  while (all.ends_with(' ')) all.pop_back();
  return all;
}

}  // namespace

std::string firstSentence(const std::string& text) {
  constexpr std::string_view kStop = "。";
  const std::string line = text.substr(0, text.find('\n'));
  const std::size_t stop = line.find(kStop);
  return stop == std::string::npos ? line : line.substr(0, stop + kStop.size());
}

std::string sentenceAboutEnd(std::string_view job, const ChildEnd& end) {
  std::string reason = inOneLine(end.errors);
  if (end.status > kSignalled) {  // whatever it told before
    reason = sql("被信号 ", end.status - kSignalled, " 终止；已保存的内容都在");
  } else if (reason.empty()) {
    reason = end.status == kRefused ? "另一个界面或另一项作业正在进行" : sql("结束状态 ", end.status);
  }
  return sql("“", job, "”没有正常结束：", reason);
}

}  // namespace zelkor
