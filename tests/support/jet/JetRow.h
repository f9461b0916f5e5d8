#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/jet/JetFormat.h"
#include "support/jet/JetPages.h"
#include "support/jet/JetText.h"

namespace zelkor::test::jet {

bool isLong(const JetColumn& column);   // lies on pages of its own when it is long
bool isFixed(const JetColumn& column);  // takes the same room in each row
std::size_t bytesOf(const JetColumn& column, const Format& format);

/// A column and where its values are in a row.
struct ColumnPlace {
  JetColumn column;
  std::size_t fixedOffset = 0;    // after the count of columns
  std::size_t variableIndex = 0;  // variable columns in front of it
};

std::vector<ColumnPlace> placesOf(std::vector<JetColumn> columns, const Format& format);
std::size_t variableColumns(const std::vector<ColumnPlace>& places, std::size_t count);

/// Packs the cells of rows as they are on their page; long values go to pages of their columns.
class RowPacker {
 public:
  RowPacker(PageFile& file, TextEncoder& encoder, const std::vector<ColumnPlace>& places);

  std::string packed(const std::vector<JetCell>& cells);
  /// The pages of each long column's values, in the order of the columns.
  std::vector<RowPages>& longValues() { return longValues_; }

 private:
  struct Parts;

  std::string fixed(const JetColumn& column, const JetCell& cell);
  void addCell(Parts& parts, std::size_t column, const JetCell& cell);
  std::size_t longestValue(const JetColumn& column) const;
  std::string variable(std::size_t column, const JetCell& cell);
  std::string longValue(RowPages& pages, const std::string& value, JetPlace place) const;
  std::string reference(RowPages& pages, const std::string& value) const;
  void addOffsets(std::string& row, const std::vector<std::size_t>& offsets, std::size_t maskSize) const;
  void addJumps(std::string& row, const std::vector<std::size_t>& offsets, std::size_t maskSize) const;

  const Format& format_;
  TextEncoder& encoder_;
  const std::vector<ColumnPlace>& places_;
  std::vector<RowPages> longValues_;
};

}  // namespace zelkor::test::jet
