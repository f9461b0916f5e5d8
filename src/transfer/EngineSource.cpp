#include "transfer/EngineSource.h"

#include <set>
#include <tuple>

#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"
#include "transfer/CellReading.h"
#include "transfer/SourceTables.h"

namespace zelkor {
namespace {

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

class EngineRows final : public RowReader {
 public:
  EngineRows(Engine& engine, StoredTables& source, const TableDef& table, ProblemList& problems)
      : engine_(engine), source_(source), table_(table), problems_(problems) {
    const std::string order = source.rowOrder(table.info);
    std::string columns;
    for (const dialect::ColumnInfo& column : table.info.columns) {
      cells_.emplace_back(static_cast<int>(cells_.size()), column.type, source.amountsAreDecimal());
      columns += (columns.empty() ? "" : ", ") + engine.words().quoted(column.name);
    }
    engine.run(source.beginTable());
    statement_ = engine.prepare("SELECT " + columns + " FROM " + engine.words().quoted(table.info.name) +
                                (order.empty() ? "" : " ORDER BY " + order));
  }

  EngineRows(const EngineRows&) = delete;
  EngineRows& operator=(const EngineRows&) = delete;
  ~EngineRows() override {
    statement_.reset();
    try {
      engine_.run(source_.endTable());
    } catch (const RuntimeError&) {
      // A connection that broke has been told of by then.
    }
  }

  bool next() override {
    if (!statement_->step()) return false;
    ++row_;
    return true;
  }

  CarriedCell cell(std::size_t column) override {
    CellReading& reading = cells_[column];
    const CarriedCell cell = reading.read(*statement_);
    if (const auto& problem = reading.problem())
      problems_.add({table_.info.name, row_, table_.info.columns[column].name, *problem});
    return cell;
  }

 private:
  Engine& engine_;
  StoredTables& source_;
  const TableDef& table_;
  ProblemList& problems_;
  std::vector<CellReading> cells_;
  std::unique_ptr<EngineStatement> statement_;
  std::int64_t row_ = 0;
};

class EngineSource final : public TransferSource {
 public:
  explicit EngineSource(std::unique_ptr<Engine> engine)
      : engine_(std::move(engine)), source_(engine_->storedTables()) {
    engine_->run(source_->beginReading());
    tables_ = readTables(*engine_, *source_, problems_.problems);
  }

  const std::vector<TableDef>& tables() const override { return tables_; }

  std::unique_ptr<RowReader> rows(const TableDef& table) override {
    return std::make_unique<EngineRows>(*engine_, *source_, table, problems_);
  }

  std::int64_t lastCounter(const TableDef& table) override {
    for (const dialect::ColumnInfo& column : table.info.columns)
      if (column.type == dialect::ColumnType::Counter) return source_->lastCounter(table.info, column.name);
    return 0;
  }

  int booksRevision() override { return engine_->booksRevision(); }

  const std::vector<TransferProblem>& problems() const override { return problems_.problems; }

 private:
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<StoredTables> source_;
  std::vector<TableDef> tables_;
  ProblemList problems_;
};

}  // namespace

std::unique_ptr<TransferSource> openSource(const std::string& path) {
  return std::make_unique<EngineSource>(openDataFileForReading(path));
}

}  // namespace zelkor
