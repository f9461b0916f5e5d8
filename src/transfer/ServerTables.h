#pragma once

#include <string>
#include <vector>

#include "store/engine/postgresql/PostgreSqlLink.h"
#include "transfer/TransferTarget.h"

namespace zelkor {

/// The tables of the schema that a session works in, within a transaction of whoever has the session.
class ServerTables final : public TransferTarget {
 public:
  ServerTables(PostgreSqlLink& server, std::string schema) : server_(server), schema_(std::move(schema)) {}

  std::int64_t load(const TableDef& table, RowReader& rows) override;
  void continueCounter(const TableDef& table, std::int64_t last) override;
  std::optional<std::string> createIndex(const TableDef& table, const IndexDef& index) override;
  void completeTable(const TableDef& table) override;
  void setBooksRevision(int revision) override;
  /// Has the server look at what was loaded; does not commit.
  void finish() override;
  const std::vector<TransferProblem>& problems() const override { return problems_; }

 private:
  PostgreSqlLink& server_;
  std::string schema_;
  std::vector<std::string> tables_;  // with the columns that are analysed
  std::vector<TransferProblem> problems_;
};

}  // namespace zelkor
