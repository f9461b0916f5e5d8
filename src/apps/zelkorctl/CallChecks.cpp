#include "apps/zelkorctl/CallChecks.h"

#include <charconv>
#include <cstdint>
#include <limits>

#include "base/Characters.h"
#include "base/DateTime.h"
#include "base/TerminalDialogs.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::string rangeProblem(const std::string& text, int least, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && number >= least && number <= most
             ? ""
             : sql("“", text, "”不是 ", least, " 到 ", most, " 的整数");
}

}  // namespace

std::string dateProblem(const std::string& text) {
  return parseIsoDate(text) ? "" : "“" + text + "”不是 yyyy-mm-dd 形式的日期";
}

std::string answersProblem(const std::string& text) {
  for (const std::string& word : Split(text, ',')) {
    if (!answerFromWord(word)) return "“" + word + "”不是 y、n、o 或 c";
  }
  return text.empty() ? "没有回答" : "";
}

std::string serverProblem(const std::string& text) {
  return text.empty() ? "没有连接参数" : "";
}

std::string yearProblem(const std::string& text) {
  return rangeProblem(text, 1900, 9998);
}

std::string jobsProblem(const std::string& text) {
  return rangeProblem(text, 1, 1000);
}

std::string keepProblem(const std::string& text) {
  return rangeProblem(text, 1, 100'000);
}

std::string labelProblem(const std::string& text) {
  constexpr std::size_t kMost = 200;
  if (!isValidUtf8(text)) return "说明不是 UTF-8 编码的文字";
  if (findUnwritable(text) != std::string::npos || text.find_first_of("\t\r\n") != std::string::npos)
    return "说明只能是一行文字，不能有换行和其他控制字符";
  const std::size_t length = Len(text);
  return length <= kMost ? "" : sql("说明有 ", length, " 个字，最多 ", kMost, " 个");
}

std::string monthProblem(const std::string& text) {
  return rangeProblem(text, 1, 12);
}

std::string monthsProblem(const std::string& text) {
  return rangeProblem(text, 1, 1200);
}

std::string runTypeProblem(const std::string& text) {
  using Limits = std::numeric_limits<std::int16_t>;
  return rangeProblem(text, Limits::min(), Limits::max());
}

}  // namespace zelkor
