#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/TextGrid.h"

namespace zelkor {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };

/// The button that Enter presses; the first unless asked otherwise.
enum class DefaultButton { First, Second };

struct MessageBox {
  std::string text;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  std::string title;  // empty: the program's own name is shown
  DefaultButton defaultButton = DefaultButton::First;
};

/// How far a long job has come.
struct Progress {
  std::string text;
  std::size_t done = 0;
  std::size_t all = 0;
};

/// How the program talks to the person in front of it: in a window, in a terminal, or in a test.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// Shows a box and waits for the answer.
  Answer MsgBox(const std::string& text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
                const std::string& title = "");
  Answer MsgBox(const MessageBox& box);
  /// Shows a table that a batch job ends with, modal, under its caption.
  void showGrid(const std::string& caption, const TextGrid& grid);
  /// A report that scripts look for: once on standard error, and in a box where there is a screen.
  void report(const MessageBox& box);

  /// Where there is a place for it, shows how a long job comes on; see LongJob. Waits for nobody.
  virtual void showProgress(const Progress& /*progress*/) {}
  virtual void endProgress() {}

  /// Whether boxes that only inform come out on standard error by themselves, for want of a screen.
  virtual bool tellsOnStandardError() const { return false; }
  /// Whether what is on standard error is to be shown in a box as well: not to who sees both at once.
  virtual bool showsReports() const { return true; }

  /// Once the program has ended with a status nothing is shown any more, and who asks or waits for an answer
  /// gets EndProgram; until it is taken back.
  void setEnded(std::optional<int> status) { ended_ = status; }

  /// Called before anything is shown, so that nothing waits in memory while a person thinks.
  void setBeforeShowing(std::function<void()> hook) { beforeShowing_ = std::move(hook); }

 protected:
  virtual Answer ask(const MessageBox& box) = 0;
  virtual void present(const std::string& caption, const TextGrid& grid) = 0;

 private:
  void goOn() const;

  std::function<void()> beforeShowing_;
  std::optional<int> ended_;
};

}  // namespace zelkor
