#include "base/Dialogs.h"

#include <iostream>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"

namespace zelkor {

Answer Dialogs::MsgBox(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
  return MsgBox(MessageBox{text, buttons, icon, title, DefaultButton::First});
}

Answer Dialogs::MsgBox(const MessageBox& box) {
  goOn();
  if (beforeShowing_) beforeShowing_();
  const Answer answer = ask(box);
  goOn();
  return answer;
}

void Dialogs::showGrid(const std::string& caption, const TextGrid& grid) {
  goOn();
  if (beforeShowing_) beforeShowing_();
  present(caption, grid);
  goOn();
}

void Dialogs::report(const MessageBox& box) {
  if (!tellsOnStandardError()) std::cerr << box.text << std::endl;
  if (showsReports()) MsgBox(box);
}

void Dialogs::goOn() const {
  if (ended_) throw EndProgram{*ended_};
  goOnUnlessSignalled();
}

}  // namespace zelkor
