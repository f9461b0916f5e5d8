#include "apps/zelkorctl/TerminalDialogs.h"

#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "apps/zelkorctl/GridText.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

const char* choices(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return "确定";
    case Buttons::OkCancel:
      return "确定/取消";
    case Buttons::YesNo:
      return "是/否";
    case Buttons::YesNoCancel:
      return "是/否/取消";
  }
  return "";
}

const char* captionOf(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return "确定";
    case Answer::Cancel:
      return "取消";
    case Answer::Yes:
      return "是";
    case Answer::No:
      return "否";
  }
  return "";
}

/// The button that a letter presses on such a box; nothing when the box has none for it.
std::optional<Answer> pressed(char letter, Buttons buttons) {
  const bool yesNo = buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel;
  const bool cancel = buttons == Buttons::OkCancel || buttons == Buttons::YesNoCancel;
  switch (letter) {
    case 'y':
      return yesNo ? Answer::Yes : Answer::Ok;
    case 'n':
      return yesNo ? std::optional(Answer::No) : std::optional(Answer::Cancel);
    case 'c':
      return cancel ? std::optional(Answer::Cancel) : std::nullopt;
    default:
      return std::nullopt;
  }
}

char letterOf(const std::string& line) {
  if (line == "y" || line == "Y" || line == "是" || line == "确定") return 'y';
  if (line == "n" || line == "N" || line == "否") return 'n';
  if (line == "c" || line == "C" || line == "取消") return 'c';
  return '?';
}

}  // namespace

char TerminalDialogs::nextAnswer(const MessageBox& box) {
  if (!plan_.answers.empty()) {
    const char letter = plan_.answers.front();
    plan_.answers.pop_front();
    return letter;
  }
  if (plan_.yesToAll) return 'y';
  std::string line;
  output_.flush();
  if (!std::getline(input_, line)) {
    throw RuntimeError(ErrorNumber::DeviceIo, "没有给出对下面问题的回答：" + box.text);
  }
  return letterOf(line);
}

Answer TerminalDialogs::ask(const MessageBox& box) {
  output_ << '[' << (box.title.empty() ? "Zelkor" : box.title) << "]\n" << box.text << '\n';
  checkOutput();
  if (box.buttons == Buttons::Ok) return Answer::Ok;

  while (true) {
    output_ << '(' << choices(box.buttons) << ") ";
    if (const auto answer = pressed(nextAnswer(box), box.buttons)) {
      output_ << captionOf(*answer) << "\n\n";
      checkOutput();
      return *answer;
    }
    output_ << "请回答 y、n 或 c\n";
  }
}

void TerminalDialogs::present(const std::string& caption, const TextGrid& grid) {
  output_ << "== " << caption << " ==\n" << gridText(grid) << '\n';
  checkOutput();
}

void TerminalDialogs::checkOutput() const {
  output_.flush();
  if (!output_) throw RuntimeError(ErrorNumber::DeviceIo, "不能写出：输出已关闭");
}

}  // namespace zelkor
