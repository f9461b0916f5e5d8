#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "base/Csv.h"

namespace zelkor {

/// Rows of a table that keep what was refused of them, to be written as a table that can be mended and
/// imported again. A reason stands before each row, in a column of its own, which is dropped when such a
/// table is read, wherever it stands, and written in its place again.
class KeptRows final : public TableRows {
 public:
  static constexpr std::string_view kReason = "拒绝原因";

  /// `rows` must outlive the object.
  explicit KeptRows(TableRows& rows) : rows_(rows) {}

  std::optional<CsvRecord> next() override;
  std::size_t count() const override { return rows_.count(); }
  /// A row as it was read, for whoever reads on before it is known whether the row is taken.
  class Row {
   private:
    friend class KeptRows;
    std::vector<std::string> fields_;
    std::optional<std::string> text_;  // instead, of one that breaks the format
  };
  const Row& last() const { return last_; }
  /// The row that was read last is not taken.
  void refuse(const std::string& reason) { refuse(last_, reason); }
  /// An earlier row is not taken.
  void refuse(Row row, const std::string& reason);

  bool refusedAny() const { return !refused_.empty(); }
  /// Writes the header and the refused rows as CSV in UTF-8, with the mark by which spreadsheets know that.
  void write(std::ostream& out) const;

 private:
  struct Refused {
    std::string reason;
    Row row;
  };
  void dropReason(CsvRecord& record) const;
  std::string withReason(std::vector<std::string> fields, const std::string& reason) const;

  TableRows& rows_;
  std::optional<std::vector<std::string>> header_;
  std::optional<std::size_t> reasonColumn_;
  Row last_;
  std::vector<Refused> refused_;
};

/// The fields as a line of a CSV file, without its end.
std::string csvLine(const std::vector<std::string>& fields);

}  // namespace zelkor
