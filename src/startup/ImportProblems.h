#pragma once

#include <ostream>
#include <string>

#include "base/KeptRows.h"

namespace zelkor {

/// What is told of a file while its rows are imported: sentences, each in a line.
class ImportProblems {
 public:
  /// Refused rows are kept in `rows`, which the import reads from. Both must outlive the object.
  ImportProblems(std::ostream& out, KeptRows& rows) : out_(out), rows_(rows) {}

  /// Something that keeps no row from being stored.
  void tell(const std::string& sentence) { out_ << sentence << '\n'; }
  /// Why the row that was read last is not stored.
  void refuse(const std::string& sentence) { refuse(rows_.last(), sentence); }
  /// The same of an earlier row.
  void refuse(const KeptRows::Row& row, const std::string& sentence) {
    tell(sentence);
    rows_.refuse(row, sentence);
  }
  const KeptRows::Row& lastRow() const { return rows_.last(); }

 private:
  std::ostream& out_;
  KeptRows& rows_;
};

}  // namespace zelkor
