#pragma once

#include "store/accountset/NewFile.h"
#include "store/engine/sqlite/NewSqliteFile.h"
#include "transfer/TransferTarget.h"

namespace zelkor {

/// A new SQLite file.
class SqliteTarget final : public TransferTarget {
 public:
  SqliteTarget(const std::filesystem::path& path, const FileAccess& access);

  std::int64_t load(const TableDef& table, RowReader& rows) override;
  void continueCounter(const TableDef& table, std::int64_t last) override;
  std::optional<std::string> createIndex(const TableDef& table, const IndexDef& index) override;
  void completeTable(const TableDef& table) override;
  void setBooksRevision(int revision) override { file_.setRevision(revision); }
  void finish() override;
  const std::vector<TransferProblem>& problems() const override { return problems_; }

 private:
  void noteIfRounded(const TableDef& table, std::int64_t row, std::size_t column, const CarriedCell& cell);

  NewFile name_;
  NewSqliteFile file_;
  std::vector<TransferProblem> problems_;
};

}  // namespace zelkor
