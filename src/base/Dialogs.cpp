#include "base/Dialogs.h"

namespace zelkor {

Answer Dialogs::MsgBox(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
  return MsgBox(MessageBox{text, buttons, icon, title, DefaultButton::First});
}

Answer Dialogs::MsgBox(const MessageBox& box) {
  if (beforeShowing_) beforeShowing_();
  return ask(box);
}

void Dialogs::showGrid(const std::string& caption, const TextGrid& grid) {
  if (beforeShowing_) beforeShowing_();
  present(caption, grid);
}

}  // namespace zelkor
