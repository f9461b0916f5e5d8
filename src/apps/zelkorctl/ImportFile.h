#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/KeptRows.h"
#include "base/OutputFile.h"
#include "tables/TableFile.h"

namespace zelkor {

/// Which file an import reads, and where the rows go that it refuses.
struct ImportOptions {
  std::string file;
  std::string charset = {};  // of a CSV file; empty: recognised
  std::string refused = {};  // a new file; empty: nowhere
};

/// The file of an import, read and found whole.
class ImportFile {
 public:
  /// `needed` are the captions that the table has to have. Errors as readTableFile and OutputFile; 3024 when
  /// the file cannot be read.
  ImportFile(const ImportOptions& options, std::vector<std::string_view> needed);

  KeptRows& rows() { return rows_; }
  /// Where in the file the table stands.
  const std::string& source() const { return table_.source; }
  /// Writes the refused rows, if there are any, and prints where they are.
  void writeRefused(std::ostream& output);

 private:
  TableFile table_;
  KeptRows rows_;
  std::string refusedName_;
  std::unique_ptr<OutputFile> refused_;
};

}  // namespace zelkor
