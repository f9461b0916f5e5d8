#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace zelkor::test {

/// An X server without a monitor, with a keyboard and a mouse. What is waited for and does not come within
/// half a minute is an error.
class VirtualScreen {
 public:
  /// `home` takes the server's own files. Throws what is missing where Xvfb or xdotool is not installed.
  explicit VirtualScreen(const std::filesystem::path& home);
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;
  ~VirtualScreen();

  const std::string& display() const { return display_; }
  /// Waits for the window with this title and gives it the keyboard.
  void focus(const std::string& title) const;
  /// Waits until no window with this title is to be seen.
  void waitUntilClosed(const std::string& title) const;
  /// Waits for the window with this title, presses keys in it, and waits until it has gone: another one may
  /// bear the same title.
  void answer(const std::string& title, const std::string& keys) const;
  /// Presses keys by their names, such as "Return" or "ctrl+s".
  void press(const std::string& keys) const;
  void type(const std::string& text) const;
  /// Clicks into the window at this place, from its upper left corner, in pixels.
  void click(const std::string& title, int x, int y) const;
  /// Keeps a picture of the whole screen.
  void keepPicture(const std::filesystem::path& png) const;

 private:
  void startServer();
  std::string windowOf(const std::string& title) const;
  std::string tool(const std::string& arguments) const;

  std::filesystem::path frameBuffer_;  // folder in which the server keeps what it shows
  pid_t server_ = -1;
  std::string display_;
};

}  // namespace zelkor::test
