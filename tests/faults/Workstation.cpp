#include "faults/Workstation.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "startup/Main.h"
#include "startup/ProgramEnd.h"

namespace zelkor::test {
namespace {

class ToldBoxes final : public Dialogs {
 public:
  explicit ToldBoxes(const Workstation::Tell& tell) : tell_(tell) {}

 protected:
  Answer ask(const MessageBox& box) override {
    tell_("box: " + box.text);
    return box.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
  }
  void present(const std::string& /*caption*/, const TextGrid& /*grid*/) override {}

 private:
  const Workstation::Tell& tell_;
};

void silenceErrors() {
  const int nothing = ::open("/dev/null", O_WRONLY);
  ::dup2(nothing, STDERR_FILENO);
}

std::string inOneLine(std::string text) {
  for (char& c : text)
    if (c == '\n') c = ' ';
  return text + '\n';
}

int runStation(const std::string& arguments, StartSignal& start, const Workstation::Work& work, int output) {
  const Workstation::Tell tell = [output](const std::string& line) {
    const std::string told = inOneLine(line);
    if (::write(output, told.data(), told.size()) < 0) throw std::runtime_error("nobody listens");
  };
  DbEngine engine;
  ToldBoxes dialogs(tell);
  const FixedClock clock(day("2020-2-1"));
  RunContext context(engine, dialogs, clock);
  writeOutBeforeShowing(context);
  return runToEnd(context,
                  [&] {
                    prepareRun(context, arguments);
                    start.await();
                    work(context, tell);
                  })
      .value_or(0);
}

}  // namespace

StartSignal::StartSignal() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  std::tie(reading_, writing_) = std::pair(ends[0], ends[1]);
}

StartSignal::~StartSignal() {
  give();
  ::close(reading_);
}

void StartSignal::give() {
  if (writing_ >= 0) ::close(std::exchange(writing_, -1));
}

// The signal is the end of what can be read: it comes when the last writing end is closed.
void StartSignal::await() {
  give();
  char nothing = 0;
  while (::read(reading_, &nothing, 1) > 0) {
  }
}

Workstation::Workstation(const KeptAccountSet& set, const std::string& user, StartSignal& start,
                         const Work& work) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process_ = ::fork();
  if (process_ == 0) {
    silenceErrors();
    // Nothing of the test program is taken down in its child.
    ::_exit(runStation(set.argument("5", user), start, work, ends[1]));
  }
  ::close(ends[1]);
  output_ = ends[0];
}

Workstation::~Workstation() {
  if (process_ > 0) {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  ::close(output_);
}

bool Workstation::nextLine(std::string& line) {
  std::array<char, 4096> buffer{};
  std::size_t end = 0;
  while ((end = read_.find('\n')) == std::string::npos) {
    const ssize_t count = ::read(output_, buffer.data(), buffer.size());
    if (count <= 0) return false;
    read_.append(buffer.data(), static_cast<std::size_t>(count));
  }
  line = read_.substr(0, end);
  read_.erase(0, end + 1);
  return true;
}

int Workstation::finish(std::vector<std::string>& lines) {
  for (std::string line; nextLine(line);) lines.push_back(line);
  int status = 0;
  ::waitpid(std::exchange(process_, -1), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace zelkor::test
