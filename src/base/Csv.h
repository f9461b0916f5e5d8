#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

struct CsvRecord {
  std::vector<std::string> fields;
  std::size_t line = 0;  // of the file, from 1, on which the record begins
};

/// What a text breaks of the format: the place (line and character from 1) and the reason.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::size_t line, std::size_t column, const std::string& reason);
  std::size_t line() const { return line_; }
  std::size_t column() const { return column_; }

 private:
  std::size_t line_;
  std::size_t column_;
};

/// Reads comma-separated values as RFC 4180 defines them, from UTF-8: fields in double quotes may hold
/// commas, line breaks and doubled quotes; a quote elsewhere is an error, and so is a character that no text
/// may hold (findUnwritable). Lines end with CR LF or LF; empty lines are passed over, a byte-order mark at
/// the start is dropped.
class CsvReader {
 public:
  explicit CsvReader(std::string text);

  /// The next record, nullopt at the end. Raises CsvError; reading may go on then with the following line.
  std::optional<CsvRecord> next();

 private:
  bool atEnd() const { return at_ == text_.size(); }
  bool atLineBreak() const;
  bool skipLineBreak();
  std::string readField();
  std::string readQuoted();
  std::string readPlain();
  void requireWritable(std::size_t start, std::size_t startLine, std::size_t startOfLine);
  void skipRestOfLine(std::size_t position);
  [[noreturn]] void fail(std::size_t position, const std::string& reason);

  std::string text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t lineStart_ = 0;
};

/// A field as it is written into a file: in quotes where it holds a comma, a quote, a line break or a blank
/// at an end.
std::string csvField(std::string_view text);

/// The same for a file that spreadsheets open: a text that they would compute, because it begins with = + -
/// @, a tab or a carriage return and is no number, gets an apostrophe before it.
std::string spreadsheetField(std::string_view text);

}  // namespace zelkor
