#include "base/Csv.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Characters.h"
#include "base/Text.h"

namespace zelkor {
namespace {

/// As Unicode writes it: U+0000.
std::string codePoint(char32_t code) {
  std::array<char, 12> text{};
  std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(code));
  return text.data();
}

/// What a spreadsheet takes for a number, signs and marks between thousands included.
bool isNumber(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  if (text.ends_with('%')) text.remove_suffix(1);
  const bool digit = text.find_first_of("0123456789") != std::string_view::npos;
  return digit && text.find_first_not_of("0123456789,.") == std::string_view::npos &&
         std::ranges::count(text, '.') <= 1;
}

}  // namespace

CsvError::CsvError(std::size_t line, std::size_t column, const std::string& reason, std::string record)
    : std::runtime_error("第 " + std::to_string(line) + " 行第 " + std::to_string(column) + " 列：" + reason),
      line_(line),
      column_(column),
      record_(std::move(record)) {}

CsvReader::CsvReader(std::string text) : text_(std::move(text)) {
  if (text_.starts_with(kByteOrderMark)) at_ = lineStart_ = kByteOrderMark.size();
}

std::size_t CsvReader::count() const {
  return static_cast<std::size_t>(std::ranges::count(text_, '\n'));
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
  const std::size_t line = line_;
  const std::size_t column = Len(before) + 1;
  throw CsvError(line, column, reason, skipRestOfLine(position));
}

/// Returns the record as far as it is skipped.
std::string CsvReader::skipRestOfLine(std::size_t position) {
  at_ = std::min(text_.find('\n', position), text_.size());
  std::string record = text_.substr(recordStart_, at_ - recordStart_);
  if (record.ends_with('\r')) record.pop_back();
  skipLineBreak();
  return record;
}

std::optional<CsvRecord> CsvReader::next() {
  while (skipLineBreak()) {
  }
  if (atEnd()) return std::nullopt;
  CsvRecord record;
  record.line = line_;
  recordStart_ = at_;
  for (;;) {
    record.fields.push_back(readField());
    if (atEnd() || skipLineBreak()) return record;
    ++at_;  // the comma
  }
}

std::string CsvReader::readField() {
  const std::size_t start = at_;
  const std::size_t line = line_;
  const std::size_t startOfLine = lineStart_;
  std::string field = !atEnd() && text_[at_] == '"' ? readQuoted() : readPlain();
  requireWritable(start, line, startOfLine);
  return field;
}

// Reading goes on after the line on which the field ends.
void CsvReader::requireWritable(std::size_t start, std::size_t startLine, std::size_t startOfLine) {
  const std::string_view field = std::string_view(text_).substr(start, at_ - start);
  const std::size_t found = findUnwritable(field);
  if (found == std::string_view::npos) return;
  const std::string_view before = field.substr(0, found);
  const std::size_t lineBreak = before.rfind('\n');
  const auto line = startLine + static_cast<std::size_t>(std::ranges::count(before, '\n'));
  const std::size_t lineStart = lineBreak == std::string_view::npos ? startOfLine : start + lineBreak + 1;
  const char32_t code = firstCharacter(field.substr(found)).code;
  const std::size_t column = Len(std::string_view(text_).substr(lineStart, start + found - lineStart)) + 1;
  throw CsvError(line, column,
                 code == kNoCharacter ? "不是有效的 UTF-8 文本" : "文本中不能有字符 " + codePoint(code),
                 skipRestOfLine(at_));
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
  // The quote may be a slip: reading goes on after the line on which it stands.
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

std::string spreadsheetField(std::string_view text) {
  const bool computed =
      !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
  if (!computed || isNumber(text)) return csvField(text);
  return csvField("'" + std::string(text));
}

}  // namespace zelkor
