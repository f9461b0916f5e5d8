#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Csv.h"

namespace zelkor {

/// What an import would make of a table, before anything is stored.
struct ImportPreview {
  static constexpr std::size_t kFirstRows = 50;
  static constexpr std::size_t kMostProblems = 1000;

  struct Column {
    std::string caption;
    std::string takenFor;  // "金额，必填"; empty where it is not read
  };
  struct Problem {
    std::size_t line = 0;  // of the file, 0 where the reason names the place
    std::string column;    // empty where it is the row as a whole
    std::string reason;
  };

  std::vector<Column> columns;
  std::vector<std::string> missing;  // captions without which nothing can be imported
  std::vector<CsvRecord> firstRows;
  std::vector<Problem> problems;  // the first ones
  std::size_t rows = 0;
  std::size_t badRows = 0;
  std::size_t savedBefore = 0;  // rows that are known and would not be stored again

  bool canBeImported() const { return missing.empty() && rows > badRows + savedBefore; }
};

/// Reads the header, and says which of the needed captions it lacks. Error 3421 when there is none.
CsvRecord previewHeader(TableRows& rows, const std::vector<std::string_view>& needed, ImportPreview& preview);
/// The next row, kept among the first ones; a row that cannot be read is counted and passed over. Nothing at
/// the end.
std::optional<CsvRecord> previewNext(TableRows& rows, ImportPreview& preview);
/// Takes up what is wrong with a row; it is counted once.
void addBadRow(ImportPreview& preview, const std::vector<ImportPreview::Problem>& problems);

}  // namespace zelkor
