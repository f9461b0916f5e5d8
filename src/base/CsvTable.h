#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/Csv.h"

namespace zelkor {

/// A row of a CSV file: the cells of the columns that were asked for, in their order and without blanks
/// around them.
struct CsvTableRow {
  std::size_t line = 0;  // of the file, from 1
  std::vector<std::string> cells;
};

/// A row that is none of its table: of another width than the header, or with quotes that are wrong.
class CsvRowError : public std::runtime_error {
 public:
  CsvRowError(std::size_t line, const std::string& reason) : std::runtime_error(reason), line_(line) {}
  /// The row's line; 0 where the text names the place itself.
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

/// A table that is read row by row. Its header names the columns, in any order; others are not read.
class CsvTable {
 public:
  /// Error 3421 for a table without a header, and for a caption that is missing or repeated. The cells of an
  /// optional column that is missing are empty. `rows` must outlive the object.
  CsvTable(TableRows& rows, std::span<const std::string_view> captions,
           std::span<const std::string_view> optional = {});

  /// The next row; nothing at the end. Raises CsvRowError; reading may go on then.
  std::optional<CsvTableRow> next();

 private:
  TableRows& rows_;
  std::size_t width_ = 0;
  std::vector<std::optional<std::size_t>> places_;  // of the captions in the header
};

/// All rows of such a table. Error 3421 for a row that is none of it, too.
std::vector<CsvTableRow> readCsvTable(TableRows& rows, std::span<const std::string_view> captions);
/// The same of a CSV text; error 3421 when it is not UTF-8, too.
std::vector<CsvTableRow> readCsvTable(std::string_view csv, std::span<const std::string_view> captions);

/// What is to be said of one cell, with its place.
std::string csvCellText(std::size_t line, std::string_view column, const std::string& text);

/// What is to be said of a cell with a single quote, which would break the statements that it is in, or
/// make others of them; nothing of any other.
std::optional<std::string> quoteProblem(std::string_view cell);

/// Error 3421 with the line when the text is not UTF-8.
void requireUtf8(std::string_view csv);

}  // namespace zelkor
