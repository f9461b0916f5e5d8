#include "transfer/EngineSource.h"

#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"
#include "transfer/CellReading.h"
#include "transfer/SourceTables.h"

namespace zelkor {
namespace {

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

}  // namespace

EngineSource::EngineSource(std::unique_ptr<Engine> engine)
    : engine_(std::move(engine)), source_(engine_->storedTables()) {}

void EngineSource::begin(const std::string& shared) {
  engine_->run(source_->beginReading(shared));
}

void EngineSource::readDefinitions() {
  tables_ = readTables(*engine_, *source_, problems_.problems);
}

std::unique_ptr<RowReader> EngineSource::rows(const TableDef& table) {
  return std::make_unique<EngineRows>(*engine_, *source_, table, problems_);
}

std::int64_t EngineSource::lastCounter(const TableDef& table) {
  for (const dialect::ColumnInfo& column : table.info.columns)
    if (column.type == dialect::ColumnType::Counter) return source_->lastCounter(table.info, column.name);
  return 0;
}

std::int64_t EngineSource::countRows(const TableDef& table) {
  engine_->run(source_->beginTable());
  std::int64_t rows = 0;
  {
    const auto count = engine_->prepare("SELECT count(*) FROM " + engine_->words().quoted(table.info.name));
    if (count->step()) rows = count->integer(0);
  }
  engine_->run(source_->endTable());
  return rows;
}

std::unique_ptr<TransferSource> openSource(const std::string& path) {
  auto source = std::make_unique<EngineSource>(openDataFileForReading(path));
  source->begin();
  source->readDefinitions();
  return source;
}

}  // namespace zelkor
