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

/// What a row breaks of the format: the place (line and character or column from 1) and the reason.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::size_t line, std::size_t column, const std::string& reason, std::string record = {});
  std::size_t line() const { return line_; }
  std::size_t column() const { return column_; }
  /// The text that was passed over, as a CSV file has it, without the end of its last line.
  const std::string& record() const { return record_; }

 private:
  std::size_t line_;
  std::size_t column_;
  std::string record_;
};

/// The rows of a table, one after the other, its header first.
class TableRows {
 public:
  TableRows() = default;
  TableRows(const TableRows&) = delete;
  TableRows& operator=(const TableRows&) = delete;
  virtual ~TableRows() = default;

  /// The next row, nullopt at the end. Raises CsvError; reading may go on then with what follows.
  virtual std::optional<CsvRecord> next() = 0;
  /// About how many there are, those that were read included.
  virtual std::size_t count() const = 0;
};

/// Reads comma-separated values as RFC 4180 defines them, from UTF-8: fields in double quotes may hold
/// commas, line breaks and doubled quotes; a quote elsewhere is an error, and so is a character that no text
/// may hold (findUnwritable). Lines end with CR LF or LF; empty lines are passed over, a byte-order mark at
/// the start is dropped.
class CsvReader final : public TableRows {
 public:
  explicit CsvReader(std::string text);

  /// Reading goes on after a CsvError with the following line.
  std::optional<CsvRecord> next() override;
  std::size_t count() const override;

 private:
  bool atEnd() const { return at_ == text_.size(); }
  bool atLineBreak() const;
  bool skipLineBreak();
  std::string readField();
  std::string readQuoted();
  std::string readPlain();
  void requireWritable(std::size_t start, std::size_t startLine, std::size_t startOfLine);
  std::string skipRestOfLine(std::size_t position);
  [[noreturn]] void fail(std::size_t position, const std::string& reason);

  std::string text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t lineStart_ = 0;
  std::size_t recordStart_ = 0;
};

/// A field as it is written into a file: in quotes where it holds a comma, a quote, a line break or a blank
/// at an end.
std::string csvField(std::string_view text);

/// The same for a file that spreadsheets open: a text that they would compute, because it begins with = + -
/// @, a tab or a carriage return and is no number, gets an apostrophe before it.
std::string spreadsheetField(std::string_view text);

}  // namespace zelkor
