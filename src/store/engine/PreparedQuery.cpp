#include "store/engine/PreparedQuery.h"

#include <algorithm>
#include <numeric>

namespace zelkor {
namespace {

// Of a statement with no more columns all of them are worth fetching.
constexpr std::size_t kNamedColumns = 24;

Projection startingProjection(const dialect::Query& query) {
  std::vector<std::size_t> columns;
  if (!query.keyed()) {
    columns.resize(query.columns().size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
  }
  return Projection::of(std::move(columns), query.columns().size());
}

enum class Bytes : std::uint8_t { With, Without };

// What is computed may fail, and is computed when it is asked for.
Projection plainColumns(const dialect::Query& query, Bytes bytes) {
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < query.columns().size(); ++i) {
    const dialect::OutputColumn& column = query.columns()[i];
    if (!column.source) continue;
    if (bytes == Bytes::With || column.type != dialect::ColumnType::Binary) columns.push_back(i);
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

bool Projection::covers(const Projection& other) const {
  return std::ranges::all_of(other.columns, [this](std::size_t column) { return placeOf[column] >= 0; });
}

PreparedQuery::PreparedQuery(Engine& engine, const dialect::Translation& translation)
    : engine_(engine),
      query_(translation.query),
      slots_(translation.slots),
      columnNames_(query_->columns()),
      firstColumn_(static_cast<int>(query_->sources().size() + query_->tieKeys())),
      projection_(std::make_shared<const Projection>(startingProjection(*query_))) {
  for (const dialect::OutputColumn& column : query_->columns()) types_.push_back(column.type);
}

bool PreparedQuery::fastFormAllowed() {
  if (!query_->guard()) return false;
  if (!guard_) guard_ = engine_.prepare(*query_->guard());
  irregular_ = guard_->step();
  guard_->reset();
  return !irregular_;
}

bool PreparedQuery::mayEndEarly() const {
  return engine_.runsAhead() && query_->ordered() && query_->sources().size() == 1 && !query_->top();
}

const std::shared_ptr<const Projection>& PreparedQuery::plain() {
  if (!plain_) plain_ = std::make_shared<const Projection>(plainColumns(*query_, Bytes::Without));
  return plain_;
}

PreparedQuery::Run PreparedQuery::take() {
  const bool unknown = query_->keyed() && projection_->columns.empty();
  return engine_.runsAhead() && unknown ? takeUnknown() : take(mayEndEarly(), projection_, fastFormAllowed());
}

// Nobody has asked for a column yet: a statement that names its columns is asked for them.
PreparedQuery::Run PreparedQuery::takeUnknown() {
  const bool named = query_->columns().size() <= kNamedColumns;
  const bool mayBeCut = query_->sources().size() == 1 && !query_->top();
  if (!mayBeCut && !named) return take(false, projection_, fastFormAllowed());
  Run run = take(mayBeCut && (query_->ordered() || !named), plain(), fastFormAllowed());
  run.learns = true;
  return run;
}

PreparedQuery::Run PreparedQuery::takeWhole() {
  return take(false, projection_, fastFormAllowed());
}

// The guard's answer is not waited for: where it finds something, the group fails and is carried out one by
// one. Beside writes, and where it has found something once, the form is used that needs none.
PreparedQuery::Run PreparedQuery::takeAhead(bool besideWrites) {
  const bool isKnown = !projection_->columns.empty();
  Run run = take(false, isKnown ? projection_ : plain(), query_->guard() && !irregular_ && !besideWrites);
  run.learns = !isKnown && query_->columns().size() > kNamedColumns;
  if (run.fast) run.guard = engine_.prepare(engine_.words().requiringNone(*query_->guard()));
  return run;
}

PreparedQuery::Run PreparedQuery::take(bool firstRowsOnly, std::shared_ptr<const Projection> projection,
                                       bool fast) {
  Run run{nullptr, std::move(projection), fast, firstRowsOnly};
  if (Idle& known = idle(run); run.projection == projection_ && !known.empty()) {
    run.statement = std::move(known.back());
    known.pop_back();
    return run;
  }
  using Form = dialect::Query::Form;
  std::string sql = query_->rows(run.projection->columns, run.fast ? Form::Fast : Form::Plain);
  if (firstRowsOnly) sql += " LIMIT " + std::to_string(kFirstRows);
  run.statement = engine_.prepare(sql);
  return run;
}

void PreparedQuery::giveBack(Run run) {
  run.statement->reset();
  if (run.projection != projection_) return;  // delivers too little by now
  idle(run).push_back(std::move(run.statement));
}

void PreparedQuery::learn(std::size_t column) {
  if (projection_->placeOf[column] >= 0) return;
  std::vector<std::size_t> columns = projection_->columns;
  columns.push_back(column);
  projection_ =
      std::make_shared<const Projection>(Projection::of(std::move(columns), projection_->placeOf.size()));
  idle_ = {};
  learnedByKey_ = {};
}

// To prepare a statement with every column of a wide table takes longer than two with a column or two.
bool PreparedQuery::readsEveryColumn() const {
  constexpr std::size_t kFewColumns = 2;
  return engine_.runsAhead() || projection_->columns.size() > kFewColumns;
}

const PreparedQuery::RowByKey& PreparedQuery::rowByKey(bool isNewColumn) {
  const bool everyPlainColumn = isNewColumn && readsEveryColumn();
  RowByKey& row = everyPlainColumn ? plainByKey_ : learnedByKey_;
  if (row.statement) return row;
  row.projection =
      everyPlainColumn ? std::make_shared<const Projection>(plainColumns(*query_, Bytes::With)) : projection_;
  row.statement = engine_.prepare(query_->rowByKey(row.projection->columns));
  return row;
}

}  // namespace zelkor
