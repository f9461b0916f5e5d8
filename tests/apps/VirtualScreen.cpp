#ifdef ZELKOR_SCREENS  // the screens are built

#include "apps/VirtualScreen.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <QImage>
#include <QtEndian>
#include <stdexcept>

#include "support/Support.h"

namespace zelkor::test {
namespace {

constexpr const char* kScreenSize = "1366x768x24";
constexpr std::chrono::seconds kPatience{30};

struct Printed {
  int status = 0;
  std::string text;
};

Printed runCommand(const std::string& command) {
  FILE* output = ::popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("cannot run " + command);
  std::string text;
  std::array<char, 256> buffer;
  while (std::fgets(buffer.data(), buffer.size(), output) != nullptr) text += buffer.data();
  return {::pclose(output), text};
}

void needTool(const std::string& name) {
  if (runCommand("command -v " + name).status == 0) return;
  throw std::runtime_error(name + " is not installed; scripts/setup installs it");
}

std::string windowsTitled(const std::string& title) {
  return "--onlyvisible --name '^" + title + "$'";
}

[[noreturn]] void becomeServer(int displayPipe, const std::filesystem::path& frameBuffer) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);  // no server outlives the tests
  const int nowhere = ::open("/dev/null", O_RDWR);
  ::dup2(nowhere, STDOUT_FILENO);
  ::dup2(nowhere, STDERR_FILENO);
  const std::string pipe = std::to_string(displayPipe);
  ::execlp("Xvfb", "Xvfb", "-displayfd", pipe.c_str(), "-screen", "0", kScreenSize, "-nolisten", "tcp",
           "-fbdir", frameBuffer.c_str(), static_cast<char*>(nullptr));
  ::_exit(127);
}

/// What the server writes once it takes clients: its number and a line end.
std::string readDisplay(int pipe) {
  std::string number;
  char letter = 0;
  while (::read(pipe, &letter, 1) == 1 && letter != '\n') number += letter;
  ::close(pipe);
  if (number.empty()) throw std::runtime_error("Xvfb does not start");
  return ":" + number;
}

}  // namespace

VirtualScreen::VirtualScreen(const std::filesystem::path& home) : frameBuffer_(home / "screen") {
  for (const char* name : {"Xvfb", "xdotool"}) needTool(name);
  std::filesystem::create_directories(frameBuffer_);
  startServer();
}

void VirtualScreen::startServer() {
  int pipe[2];
  if (::pipe(pipe) != 0) throw std::runtime_error("no pipe");
  server_ = ::fork();
  if (server_ < 0) throw std::runtime_error("no process");
  if (server_ == 0) becomeServer(pipe[1], frameBuffer_);
  ::close(pipe[1]);
  display_ = readDisplay(pipe[0]);
}

VirtualScreen::~VirtualScreen() {
  if (server_ <= 0) return;
  ::kill(server_, SIGTERM);
  ::waitpid(server_, nullptr, 0);
}

std::string VirtualScreen::tool(const std::string& arguments) const {
  const std::string patience = std::to_string(kPatience.count());
  const std::string command = "DISPLAY=" + display_ + " timeout " + patience + " xdotool " + arguments;
  const Printed printed = runCommand(command);
  if (printed.status != 0) throw std::runtime_error("failed: " + command);
  return printed.text;
}

std::string VirtualScreen::windowOf(const std::string& title) const {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    try {
      const std::string found = tool("search --sync " + windowsTitled(title));
      return found.substr(0, found.find('\n'));
    } catch (const std::runtime_error&) {  // also where another window went while it was looked at
      if (std::chrono::steady_clock::now() > end) throw;
    }
  }
}

void VirtualScreen::focus(const std::string& title) const {
  tool("windowfocus --sync " + windowOf(title));
}

void VirtualScreen::waitUntilClosed(const std::string& title) const {
  const std::string search = "DISPLAY=" + display_ + " xdotool search " + windowsTitled(title);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!runCommand(search).text.empty()) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error("still open: " + title);
  }
}

void VirtualScreen::answer(const std::string& title, const std::string& keys) const {
  const std::string window = windowOf(title);
  tool("windowfocus --sync " + window);
  press(keys);
  const std::string search = "DISPLAY=" + display_ + " xdotool search " + windowsTitled(title);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (("\n" + runCommand(search).text).find("\n" + window + "\n") != std::string::npos) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error("still open: " + title);
  }
}

void VirtualScreen::press(const std::string& keys) const {
  tool("key --clearmodifiers " + keys);
}

void VirtualScreen::type(const std::string& text) const {
  tool("type -- '" + text + "'");
}

void VirtualScreen::click(const std::string& title, int x, int y) const {
  tool("mousemove --sync --window " + windowOf(title) + " " + std::to_string(x) + " " + std::to_string(y) +
       " click 1");
}

void VirtualScreen::keepPicture(const std::filesystem::path& png) const {
  // The server keeps the screen in the format of X window dumps: a header of big-endian words, a palette of
  // twelve bytes a colour, then the rows.
  const std::string dump = readFile(frameBuffer_ / "Xvfb_screen0");
  const auto word = [&dump](std::size_t index) {
    quint32 value;
    std::memcpy(&value, dump.data() + 4 * index, sizeof value);
    return qFromBigEndian(value);
  };
  const std::size_t pixels = word(0) + std::size_t{12} * word(19);
  const QImage screen(reinterpret_cast<const uchar*>(dump.data()) + pixels, static_cast<int>(word(4)),
                      static_cast<int>(word(5)), static_cast<int>(word(12)), QImage::Format_RGB32);
  std::filesystem::create_directories(png.parent_path());
  if (!screen.save(QString::fromStdString(png.string()))) {
    throw std::runtime_error("cannot write " + png.string());
  }
}

}  // namespace zelkor::test

#endif
