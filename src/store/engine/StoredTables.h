#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"

namespace zelkor {

/// Something that could not be carried to another file or server as it is: a table, an index or a single
/// value.
struct TransferProblem {
  std::string table;
  std::int64_t row = 0;  // counted from 1; 0 when it is no single row
  std::string column;    // may be empty
  std::string reason;    // one sentence for the administrator
};

/// What an engine's own check of its pages and indexes has found.
struct IntegrityCheck {
  std::vector<std::string> problems;  // in the engine's words
  std::string notDone;                // why it could not look; empty where it has
};

/// What an engine knows of its tables beyond their columns, for whoever carries or checks whole tables.
class StoredTables {
 public:
  virtual ~StoredTables() = default;
  /// The statement that begins a state that stays the same until the end of the transaction; with `shared` it
  /// is the one that another connection to the same database shares.
  virtual std::string beginReading(const std::string& shared = {}) const = 0;
  /// Names the state that is being read to other connections; empty where they cannot share it.
  virtual std::string sharedState() { return {}; }
  /// Changes with every change that others have made by the time the reading begins; where states cannot be
  /// shared.
  virtual std::string stateMark() { return {}; }
  /// What goes before and after the reading of a table, so that it is not locked longer than that.
  virtual std::string beginTable() const { return {}; }
  virtual std::string endTable() const { return {}; }
  /// Whether amounts are kept as decimal numbers, so that the text of a cell is exact.
  virtual bool amountsAreDecimal() const { return false; }
  /// The indexes that were made for the table, in the order in which they were made; those that cannot be
  /// carried become problems.
  virtual std::vector<IndexDef> indexes(const dialect::TableInfo& table,
                                        std::vector<TransferProblem>& problems) = 0;
  /// The default expressions of columns, in the engine's words.
  virtual std::map<std::string, std::string> defaults(const dialect::TableInfo& table) = 0;
  /// What follows ORDER BY so that rows come as they were added; empty where nothing says.
  virtual std::string rowOrder(const dialect::TableInfo& table) = 0;
  virtual std::int64_t lastCounter(const dialect::TableInfo& table, const std::string& column) = 0;
  /// Views, triggers and the like, which are not carried.
  virtual std::vector<TransferProblem> others() = 0;
  /// Reads all tables and indexes; writes nothing.
  virtual IntegrityCheck checkIntegrity() = 0;
};

}  // namespace zelkor
