#pragma once

#include <functional>
#include <string>

#include "base/TextGrid.h"

namespace zelkor {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };

/// The button that Enter presses; the first unless told otherwise.
enum class DefaultButton { First, Second };

struct MessageBox {
  std::string text;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  std::string title;  // empty: the program's own name is shown
  DefaultButton defaultButton = DefaultButton::First;
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

  /// Called before anything is shown, so that nothing waits in memory while a person thinks.
  void setBeforeShowing(std::function<void()> hook) { beforeShowing_ = std::move(hook); }

 protected:
  virtual Answer ask(const MessageBox& box) = 0;
  virtual void present(const std::string& caption, const TextGrid& grid) = 0;

 private:
  std::function<void()> beforeShowing_;
};

}  // namespace zelkor
