#pragma once

#include <deque>
#include <iosfwd>

#include "base/Dialogs.h"

namespace zelkor {

/// What is answered without a person: the given answers in turn, then Yes (or OK) to everything if so wished.
struct AnswerPlan {
  std::deque<char> answers;  // y, n, c: yes or OK, no, cancel
  bool yesToAll = false;
};

/// Prints every box with its title and the answer taken. A box with one button needs no answer; where the
/// plan has none a line is read from `input`. Error 57 when there is no answer at all or the output is
/// closed.
class TerminalDialogs final : public Dialogs {
 public:
  TerminalDialogs(std::ostream& output, std::istream& input, AnswerPlan plan)
      : output_(output), input_(input), plan_(std::move(plan)) {}

 protected:
  Answer ask(const MessageBox& box) override;
  void present(const std::string& caption, const TextGrid& grid) override;

 private:
  char nextAnswer(const MessageBox& box);
  void checkOutput() const;

  std::ostream& output_;
  std::istream& input_;
  AnswerPlan plan_;
};

}  // namespace zelkor
