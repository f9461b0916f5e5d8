#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "transfer/jet/JetDefinition.h"
#include "transfer/jet/JetRow.h"

namespace zelkor::jet {

/// Walks the rows of a table in the order of its pages, and follows those that were moved. What it gives
/// holds until it walks on. Error 3343 where the table is damaged.
class TableWalk {
 public:
  TableWalk(JetFile& file, const Definition& table, const std::string& name);
  TableWalk(const TableWalk&) = delete;
  TableWalk& operator=(const TableWalk&) = delete;

  bool next();
  /// Of the rows met so far, counted from 1.
  std::int64_t row() const { return row_; }
  /// At the end: what is to be said of a table that counts other rows than it has.
  std::optional<std::string> countProblem() const;
  bool isSet(const Column& column) const { return fields_.isSet(column); }
  /// The bytes of a column that has a value.
  std::string_view field(const Column& column);
  /// The bytes of a long value that a field stands for. They may lie in `buffer`.
  std::string_view longValue(std::string_view field, std::string& buffer);
  /// Raises error 3343 for a value of the current row.
  [[noreturn]] void damaged(const Column& column, const std::string& what) const;

 private:
  bool turnPage();
  std::string_view settled(PlacedRow row);
  PlacedRow pointedAt(RowPointer pointer, Page& page, PageNumber& held);
  void appendChain(RowPointer first, std::size_t length, std::string& buffer);
  [[noreturn]] void damaged(const std::string& what) const;

  JetFile& file_;
  const Definition& table_;
  const std::string& name_;
  RowFields fields_;
  Page page_;
  std::size_t nextPage_ = 0;
  std::size_t nextRow_ = 0;
  std::size_t rowsOnPage_ = 0;
  std::int64_t row_ = 0;
  Page movedTo_;
  PageNumber movedToNumber_ = 0;
  Page values_;
  PageNumber valuesNumber_ = 0;
};

}  // namespace zelkor::jet
