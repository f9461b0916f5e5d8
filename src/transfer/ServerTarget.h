#pragma once

#include "store/accountset/NewFile.h"
#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/ServerFile.h"
#include "transfer/TransferTarget.h"

namespace zelkor {

/// A new schema of a server with the text file that names it. All is one transaction, which nobody else sees
/// before its end.
class ServerTarget final : public TransferTarget {
 public:
  ServerTarget(const std::filesystem::path& path, const FileAccess& access, const ServerFile& place);
  ~ServerTarget() override;

  std::int64_t load(const TableDef& table, RowReader& rows) override;
  void continueCounter(const TableDef& table, std::int64_t last) override;
  std::optional<std::string> createIndex(const TableDef& table, const IndexDef& index) override;
  void completeTable(const TableDef& table) override;
  void setBooksRevision(int revision) override;
  void finish() override;
  const std::vector<TransferProblem>& problems() const override { return problems_; }

 private:
  NewFile name_;
  std::string schema_;
  PostgreSqlLink server_;
  std::vector<std::string> tables_;  // with the columns that are analysed
  std::vector<TransferProblem> problems_;
};

}  // namespace zelkor
