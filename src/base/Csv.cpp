#include "base/Csv.h"

#include <algorithm>

#include "base/Text.h"

namespace zelkor {

CsvError::CsvError(std::size_t line, std::size_t column, const std::string& reason)
    : std::runtime_error("第 " + std::to_string(line) + " 行第 " + std::to_string(column) + " 列：" + reason),
      line_(line),
      column_(column) {}

CsvReader::CsvReader(std::string text) : text_(std::move(text)) {
  if (text_.starts_with("\xEF\xBB\xBF")) at_ = lineStart_ = 3;
}

bool CsvReader::atLineBreak() const {
  return !atEnd() && (text_[at_] == '\n' || std::string_view(text_).substr(at_).starts_with("\r\n"));
}

bool CsvReader::skipLineBreak() {
  if (!atLineBreak()) return false;
  at_ += text_[at_] == '\n' ? 1 : 2;
  ++line_;
  lineStart_ = at_;
  return true;
}

void CsvReader::fail(std::size_t position, const std::string& reason) {
  const std::string_view before = std::string_view(text_).substr(lineStart_, position - lineStart_);
  const CsvError error(line_, Len(before) + 1, reason);
  at_ = std::min(text_.find('\n', position), text_.size());
  skipLineBreak();
  throw error;
}

std::optional<CsvRecord> CsvReader::next() {
  while (skipLineBreak()) {
  }
  if (atEnd()) return std::nullopt;
  CsvRecord record;
  record.line = line_;
  for (;;) {
    record.fields.push_back(readField());
    if (atEnd() || skipLineBreak()) return record;
    ++at_;  // the comma
  }
}

std::string CsvReader::readField() {
  const std::size_t start = at_;
  const std::size_t line = line_;
  std::string field = !atEnd() && text_[at_] == '"' ? readQuoted() : readPlain();
  if (!isValidUtf8(field)) {
    if (line_ == line) fail(start, "不是有效的 UTF-8 文本");
    fail(lineStart_, "不是有效的 UTF-8 文本");
  }
  return field;
}

std::string CsvReader::readQuoted() {
  const std::size_t start = at_++;
  const std::size_t startLine = line_;
  const std::size_t startOfLine = lineStart_;
  std::string field;
  for (; !atEnd(); ++at_) {
    if (text_[at_] == '\n') {
      ++line_;
      lineStart_ = at_ + 1;
    }
    if (text_[at_] != '"') {
      field.push_back(text_[at_]);
      continue;
    }
    ++at_;
    if (atEnd() || text_[at_] == ',' || atLineBreak()) return field;
    if (text_[at_] != '"') fail(at_, "引号之后应为逗号或行尾");
    field.push_back('"');
  }
  // The quote may be a slip: reading goes on behind the line on which it stands.
  line_ = startLine;
  lineStart_ = startOfLine;
  fail(start, "引号没有结束");
}

std::string CsvReader::readPlain() {
  const std::size_t start = at_;
  const auto end = std::find_if(text_.begin() + static_cast<std::ptrdiff_t>(at_), text_.end(),
                                [](char c) { return c == ',' || c == '\n' || c == '"' || c == '\r'; });
  at_ = static_cast<std::size_t>(end - text_.begin());
  if (!atEnd() && text_[at_] == '"') fail(at_, "未加引号的字段中有引号");
  if (!atEnd() && text_[at_] == '\r' && !atLineBreak()) fail(at_, "字段中有单独的回车符");
  return text_.substr(start, at_ - start);
}

std::string csvField(std::string_view text) {
  const bool blankEnds = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (!blankEnds && text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) {
    if (c == '"') field.push_back('"');
    field.push_back(c);
  }
  field.push_back('"');
  return field;
}

}  // namespace zelkor
