#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Csv.h"

namespace zelkor {

/// How a table's file is to be read.
struct TableReading {
  std::string charset = {};                   // of a CSV text; empty: recognised
  std::vector<std::string_view> needed = {};  // captions: of a workbook the first sheet is read that has all
};

/// A table that was found in a file.
struct TableFile {
  std::unique_ptr<TableRows> rows;
  std::string source;  // "CSV（GB18030）", "工作表“台账”，表头在第 3 行"
};

/// Reads a table from the bytes of a file: an xlsx workbook, or comma-separated values in UTF-8 or GB18030.
/// Where no sheet of a workbook has all captions it is the one that lacks the fewest.
///
/// In a workbook the header is the first row that fits, among the first ones; columns without a caption and
/// hidden sheets are not read. Numbers come as a spreadsheet would show them in full, dates as yyyy-mm-dd.
/// Nothing is left to be found out later: error 3421, with the reason in a sentence, when the file is
/// damaged, is none of the two, or holds more than may be imported; error 13 for an unknown charset.
TableFile readTableFile(std::string content, const TableReading& reading);

}  // namespace zelkor
