#include "store/engine/PreparedQuery.h"

#include <numeric>

namespace zelkor {
namespace {

Projection startingProjection(const dialect::Query& query) {
  std::vector<std::size_t> columns;
  if (!query.keyed()) {
    columns.resize(query.columns().size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
  }
  return Projection::of(std::move(columns), query.columns().size());
}

}  // namespace

Projection Projection::of(std::vector<std::size_t> columns, std::size_t outputColumns) {
  Projection projection{std::move(columns), std::vector<int>(outputColumns, -1)};
  int place = 0;
  for (const std::size_t column : projection.columns) projection.placeOf[column] = place++;
  return projection;
}

PreparedQuery::PreparedQuery(Engine& engine, const dialect::Translation& translation)
    : engine_(engine),
      query_(translation.query),
      slots_(translation.slots),
      columnNames_(query_->columns()),
      projection_(std::make_shared<const Projection>(startingProjection(*query_))) {}

bool PreparedQuery::fastFormAllowed() {
  if (!query_->guard()) return false;
  if (!guard_) guard_ = engine_.prepare(*query_->guard());
  const bool irregular = guard_->step();
  guard_->reset();
  return !irregular;
}

PreparedQuery::Run PreparedQuery::take() {
  const bool fast = fastFormAllowed();
  auto& idle = fast ? idleFast_ : idle_;
  if (!idle.empty()) {
    Run run{std::move(idle.back()), projection_, fast};
    idle.pop_back();
    return run;
  }
  using Form = dialect::Query::Form;
  const std::string sql = query_->rows(projection_->columns, fast ? Form::Fast : Form::Plain);
  return {engine_.prepare(sql), projection_, fast};
}

void PreparedQuery::giveBack(Run run) {
  run.statement->reset();
  if (run.projection != projection_) return;  // delivers too little by now
  (run.fast ? idleFast_ : idle_).push_back(std::move(run.statement));
}

void PreparedQuery::learn(std::size_t column) {
  if (projection_->placeOf[column] >= 0) return;
  std::vector<std::size_t> columns = projection_->columns;
  columns.push_back(column);
  projection_ =
      std::make_shared<const Projection>(Projection::of(std::move(columns), projection_->placeOf.size()));
  idle_.clear();
  idleFast_.clear();
  rowByKey_.reset();
}

EngineStatement& PreparedQuery::rowByKey() {
  if (!rowByKey_) rowByKey_ = engine_.prepare(query_->rowByKey(projection_->columns));
  return *rowByKey_;
}

}  // namespace zelkor
