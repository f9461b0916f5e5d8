#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/engine/StoredTables.h"
#include "transfer/CarriedCell.h"

namespace zelkor {

/// Walks the rows of one table, in the order in which they were added.
class RowReader {
 public:
  virtual ~RowReader() = default;
  /// Moves to the next row; false after the last.
  virtual bool next() = 0;
  /// The cell of the current row in that column of the table, counted from 0.
  virtual CarriedCell cell(std::size_t column) = 0;
};

/// A file or a server's schema whose tables are carried elsewhere. It shows one state of them for as long as
/// it lives, whatever others write meanwhile.
class TransferSource {
 public:
  virtual ~TransferSource() = default;
  /// The tables as the target is to create them.
  virtual const std::vector<TableDef>& tables() const = 0;
  /// Opens a table's rows. The cells come in the order of the table's columns.
  virtual std::unique_ptr<RowReader> rows(const TableDef& table) = 0;
  /// The greatest number that the table's counter has given; 0 without a counter.
  virtual std::int64_t lastCounter(const TableDef& table) = 0;
  /// The revision of the books that the tables are of; 0 where they keep none.
  virtual int booksRevision() = 0;
  /// What was met so far that cannot be carried as it is; each is reported once, however often it is read.
  virtual const std::vector<TransferProblem>& problems() const = 0;
};

}  // namespace zelkor
