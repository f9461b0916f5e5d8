#pragma once

#include <deque>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dialogs.h"

namespace zelkor {

/// The answer that a word stands for: y yes 是, n no 否, o ok 确定, c cancel 取消; nullopt for any other.
std::optional<Answer> answerFromWord(std::string_view word);

/// Boxes and grids in a terminal: each box is printed with its title, its text and its buttons, then the
/// answer taken.
///
/// A box with the one button 确定 is taken as read and asks for nothing. A question takes its answer from the
/// list given beforehand; when that is used up, "yes to all" answers with the first button (是, 确定); else,
/// where no list was given, a line is read: an empty one presses the default button, a word that is none of
/// the buttons asks again. A question that finds no answer, or one that the box does not have, is error 57.
class TerminalDialogs final : public Dialogs {
 public:
  struct Options {
    std::optional<std::vector<Answer>> answers;  // nullopt: ask
    bool yesToAll = false;
    std::string programName = "Zelkor";  // the title of a box that has none
    std::ostream* progress = nullptr;    // a terminal on which long jobs show how they come on
  };

  TerminalDialogs(std::istream& in, std::ostream& out) : TerminalDialogs(in, out, Options{}) {}
  TerminalDialogs(std::istream& in, std::ostream& out, Options options);

  bool showsReports() const override { return false; }
  /// One line, which is written over again and goes at the end.
  void showProgress(const Progress& progress) override;
  void endProgress() override;

 protected:
  Answer ask(const MessageBox& box) override;
  void present(const std::string& caption, const TextGrid& grid) override;

 private:
  void print(const MessageBox& box);
  Answer takeAnswer(const MessageBox& box);
  Answer readAnswer(const MessageBox& box);

  std::istream& in_;
  std::ostream& out_;
  Options options_;
  std::deque<Answer> answers_;
};

}  // namespace zelkor
