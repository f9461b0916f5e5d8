#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "transfer/TransferSource.h"

namespace zelkor {

/// A new file, or a new schema of a server with the text file that names it. Until `finish` it is not there
/// for anybody else, and it goes with the object unless `finish` was called.
class TransferTarget {
 public:
  virtual ~TransferTarget() = default;
  /// Creates the table without its indexes and stores all rows of the reader, in order; gives their number.
  virtual std::int64_t load(const TableDef& table, RowReader& rows) = 0;
  /// The table's counter goes on after this number and after the greatest one that is stored.
  virtual void continueCounter(const TableDef& table, std::int64_t last) = 0;
  /// Creates an index; gives the engine's reason when the rows do not allow it (a key that comes twice).
  virtual std::optional<std::string> createIndex(const TableDef& table, const IndexDef& index) = 0;
  /// Creates what else belongs to the table: the indexes by which texts are ordered as numbers.
  virtual void completeTable(const TableDef& table) = 0;
  /// Notes the revision of the books.
  virtual void setBooksRevision(int revision) = 0;
  /// Makes everything durable and gives it its name.
  virtual void finish() = 0;
  /// The values that the engine cannot keep as they came; what it keeps instead is reported.
  virtual const std::vector<TransferProblem>& problems() const = 0;
};

}  // namespace zelkor
