#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

struct CsvRow {
  long line = 0;  // of the file, counting from 1, where the row begins
  std::vector<std::string> fields;
  bool unclosedQuote = false;
};

/// Reads comma-separated text by RFC 4180: quoted fields may hold commas, line breaks and doubled quotes.
/// Lines end in LF or CR LF; empty lines are passed over; a byte order mark at the start is dropped.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// The next row, or nothing at the end.
  std::optional<CsvRow> next();

 private:
  bool atLineEnd() const;
  void skipLineEnd();
  std::string quotedField(CsvRow& row);
  std::string plainField();

  std::string_view text_;
  std::size_t position_ = 0;
  long line_ = 1;
};

/// Line of the first byte that is no UTF-8, or nothing when the whole text is.
std::optional<long> firstLineThatIsNotUtf8(std::string_view text);

}  // namespace zelkor
