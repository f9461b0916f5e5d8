#include "base/TerminalDialogs.h"

#include <algorithm>
#include <array>
#include <istream>
#include <ostream>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/TextGridPrinter.h"

namespace zelkor {
namespace {

constexpr std::string_view kRestOfLine = "\x1B[K";  // is cleared

struct AnswerWords {
  Answer answer;
  std::string_view letter;
  std::string_view word;
  std::string_view caption;
};
constexpr std::array<AnswerWords, 4> kAnswers = {{{Answer::Ok, "o", "ok", "确定"},
                                                  {Answer::Cancel, "c", "cancel", "取消"},
                                                  {Answer::Yes, "y", "yes", "是"},
                                                  {Answer::No, "n", "no", "否"}}};

const AnswerWords& wordsOf(Answer answer) {
  return *std::find_if(kAnswers.begin(), kAnswers.end(),
                       [answer](const AnswerWords& words) { return words.answer == answer; });
}

std::vector<Answer> answersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return {Answer::Ok};
    case Buttons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
  }
  return {};
}

std::string_view captionOf(Icon icon) {
  switch (icon) {
    case Icon::None:
      return "";
    case Icon::Information:
      return "（信息）";
    case Icon::Question:
      return "（询问）";
    case Icon::Exclamation:
      return "（警告）";
    case Icon::Critical:
      return "（错误）";
  }
  return "";
}

// The box's own button for an answer. Yes and No also press 确定 and 取消 where the box has only those.
std::optional<Answer> buttonFor(Answer answer, Buttons buttons) {
  if (buttons == Buttons::OkCancel && answer == Answer::Yes) answer = Answer::Ok;
  if (buttons == Buttons::OkCancel && answer == Answer::No) answer = Answer::Cancel;
  const auto offered = answersOf(buttons);
  const bool found = std::find(offered.begin(), offered.end(), answer) != offered.end();
  return found ? std::optional(answer) : std::nullopt;
}

/// A carriage return alone ends a line too; in a terminal the next line would be written over this one.
std::string linesOf(std::string text) {
  for (std::size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at)) {
    if (at + 1 < text.size() && text[at + 1] == '\n')
      text.erase(at, 1);
    else
      text[at] = '\n';
  }
  return text;
}

[[noreturn]] void fail(const std::string& reason, const MessageBox& box) {
  throw RuntimeError(ErrorNumber::DeviceIo, reason + "：" + box.text);
}

}  // namespace

std::optional<Answer> answerFromWord(std::string_view word) {
  const std::string lower = LCase(Trim(word));
  for (const AnswerWords& words : kAnswers) {
    if (lower == words.letter || lower == words.word || lower == words.caption) return words.answer;
  }
  return std::nullopt;
}

TerminalDialogs::TerminalDialogs(std::istream& in, std::ostream& out, Options options)
    : in_(in), out_(out), options_(std::move(options)) {
  if (options_.answers) answers_.assign(options_.answers->begin(), options_.answers->end());
}

Answer TerminalDialogs::ask(const MessageBox& box) {
  print(box);
  const Answer answer = takeAnswer(box);
  out_ << "-> " << wordsOf(answer).caption << '\n' << std::flush;
  return answer;
}

void TerminalDialogs::present(const std::string& caption, const TextGrid& grid) {
  out_ << "== " << caption << " ==\n";
  printGrid(out_, grid);
  out_ << std::flush;
}

void TerminalDialogs::showProgress(const Progress& progress) {
  if (!options_.progress) return;
  const std::size_t percent = progress.done * 100 / std::max<std::size_t>(1, progress.all);
  *options_.progress << '\r' << progress.text << ' ' << percent << "%" << kRestOfLine << std::flush;
}

void TerminalDialogs::endProgress() {
  if (options_.progress) *options_.progress << '\r' << kRestOfLine << std::flush;
}

void TerminalDialogs::print(const MessageBox& box) {
  out_ << "== " << (box.title.empty() ? options_.programName : box.title) << " ==" << captionOf(box.icon)
       << '\n';
  out_ << linesOf(box.text) << '\n';
  for (const Answer answer : answersOf(box.buttons)) {
    out_ << '[' << wordsOf(answer).caption << ' ' << wordsOf(answer).letter << "] ";
  }
  out_ << '\n' << std::flush;
}

Answer TerminalDialogs::takeAnswer(const MessageBox& box) {
  if (box.buttons == Buttons::Ok) {
    // A list may give an "ok" for such a box, or leave it out.
    if (!answers_.empty() && answers_.front() == Answer::Ok) answers_.pop_front();
    return Answer::Ok;
  }
  if (!answers_.empty()) {
    const auto answer = buttonFor(answers_.front(), box.buttons);
    if (!answer) fail("回答不是此问题的按钮", box);
    answers_.pop_front();
    return *answer;
  }
  if (options_.yesToAll) return answersOf(box.buttons).front();
  if (options_.answers) fail("给出的回答已用完", box);
  return readAnswer(box);
}

Answer TerminalDialogs::readAnswer(const MessageBox& box) {
  std::string line;
  while (std::getline(in_, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (Trim(line).empty()) {
      return answersOf(box.buttons)[box.defaultButton == DefaultButton::Second ? 1 : 0];
    }
    const auto word = answerFromWord(line);
    const auto answer = word ? buttonFor(*word, box.buttons) : std::nullopt;
    if (answer) return *answer;
    out_ << "请输入方括号中的字母。\n" << std::flush;
  }
  goOnUnlessSignalled();  // what has ended the reading
  fail("没有可读的回答", box);
}

}  // namespace zelkor
