#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"
#include "store/engine/Engine.h"
#include "transfer/TransferSource.h"

namespace zelkor {

/// What an engine tells of its tables beyond their columns.
class SourceTables {
 public:
  virtual ~SourceTables() = default;
  /// The statement that begins a state that stays the same until the end of the transaction.
  virtual std::string beginReading() const = 0;
  /// What goes before and behind the reading of a table, so that it is not locked longer than that.
  virtual std::string beginTable() const { return {}; }
  virtual std::string endTable() const { return {}; }
  /// The indexes that were made for the table, in the order in which they were made; those that cannot be
  /// carried become problems.
  virtual std::vector<IndexDef> indexes(const dialect::TableInfo& table,
                                        std::vector<TransferProblem>& problems) = 0;
  /// The default expressions of columns, in the engine's words.
  virtual std::map<std::string, std::string> defaults(const dialect::TableInfo& table) = 0;
  /// What stands behind ORDER BY so that rows come as they were added; empty where nothing tells.
  virtual std::string rowOrder(const dialect::TableInfo& table) = 0;
  virtual std::int64_t lastCounter(const dialect::TableInfo& table, const std::string& column) = 0;
  /// Views, triggers and the like, which are not carried.
  virtual std::vector<TransferProblem> others() = 0;
};

std::unique_ptr<SourceTables> sourceTablesOf(Engine& engine);

/// All tables of the source as a target is to create them.
std::vector<TableDef> readTables(Engine& engine, SourceTables& source,
                                 std::vector<TransferProblem>& problems);

}  // namespace zelkor
