#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

/// A row of a CSV file: the cells of the columns that were asked for, in their order and without blanks
/// around them.
struct CsvTableRow {
  std::size_t line = 0;  // of the file, from 1
  std::vector<std::string> cells;
};

/// All rows of a CSV file in UTF-8 whose header names the columns, in any order; others are not read. Error
/// 3421 tells what is wrong with the text, its header or the width of a row.
std::vector<CsvTableRow> readCsvTable(const std::string& csv, std::span<const std::string_view> captions);

/// Error 3421 with the line when the text is not UTF-8.
void requireUtf8(std::string_view csv);

}  // namespace zelkor
