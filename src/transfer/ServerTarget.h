#pragma once

#include "store/accountset/NewFile.h"
#include "store/engine/postgresql/ServerFile.h"
#include "transfer/ServerTables.h"

namespace zelkor {

/// A new schema of a server with the text file that names it. All is one transaction, which nobody else sees
/// before its end.
class ServerTarget final : public TransferTarget {
 public:
  ServerTarget(const std::filesystem::path& path, const FileAccess& access, const ServerFile& place);
  ~ServerTarget() override;

  std::int64_t load(const TableDef& table, RowReader& rows) override { return tables_.load(table, rows); }
  void continueCounter(const TableDef& table, std::int64_t last) override {
    tables_.continueCounter(table, last);
  }
  std::optional<std::string> createIndex(const TableDef& table, const IndexDef& index) override {
    return tables_.createIndex(table, index);
  }
  void completeTable(const TableDef& table) override { tables_.completeTable(table); }
  void setBooksRevision(int revision) override { tables_.setBooksRevision(revision); }
  void finish() override;
  const std::vector<TransferProblem>& problems() const override { return tables_.problems(); }

 private:
  NewFile name_;
  std::string schema_;
  PostgreSqlLink server_;
  ServerTables tables_;
};

}  // namespace zelkor
