#pragma once

#include <memory>
#include <set>
#include <string>
#include <tuple>

#include "store/engine/Engine.h"
#include "transfer/TransferSource.h"

namespace zelkor {

/// Keeps problems, each once.
class ProblemList {
 public:
  void add(const TransferProblem& problem) {
    if (known_.emplace(problem.table, problem.row, problem.column).second) problems.push_back(problem);
  }

  std::vector<TransferProblem> problems;

 private:
  std::set<std::tuple<std::string, std::int64_t, std::string>> known_;
};

/// What an engine keeps, in the state that it has when the reading begins.
class EngineSource final : public TransferSource {
 public:
  explicit EngineSource(std::unique_ptr<Engine> engine);

  /// Begins to read, in the state that another source shares or in that of now; then the definitions of the
  /// tables. Until both nothing else may be asked for.
  void begin(const std::string& shared = {});
  void readDefinitions();
  /// Gives the state up; it can be begun again.
  void end() { engine_->rollback(); }
  /// See StoredTables.
  std::string sharedState() { return source_->sharedState(); }
  std::string stateMark() { return source_->stateMark(); }

  Engine& engine() { return *engine_; }
  std::int64_t countRows(const TableDef& table);

  const std::vector<TableDef>& tables() const override { return tables_; }
  std::unique_ptr<RowReader> rows(const TableDef& table) override;
  std::int64_t lastCounter(const TableDef& table) override;
  int booksRevision() override { return engine_->booksRevision(); }
  const std::vector<TransferProblem>& problems() const override { return problems_.problems; }

 private:
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<StoredTables> source_;
  std::vector<TableDef> tables_;
  ProblemList problems_;
};

/// Opens an account set's file, of SQLite or one that names a server's schema, to read one state of it.
/// Errors as openDataFile's; a file that may not be written is opened all the same.
std::unique_ptr<TransferSource> openSource(const std::string& path);

}  // namespace zelkor
