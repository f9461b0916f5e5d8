#include "store/engine/RecordsetState.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/engine/Binding.h"
#include "store/engine/Connection.h"

namespace zelkor {
namespace {

// The literals of a statement point into its text; this points them into our own copy of the text.
std::vector<dialect::Literal> literalsWithin(const std::string& copy, std::string_view original,
                                             const std::vector<dialect::Literal>& literals) {
  std::vector<dialect::Literal> moved = literals;
  for (dialect::Literal& literal : moved) {
    const auto offset = static_cast<std::size_t>(literal.text.data() - original.data());
    literal.text = std::string_view(copy).substr(offset, literal.text.size());
  }
  return moved;
}

std::optional<std::int64_t> keyAt(const EngineStatement& row, int source) {
  if (row.kind(source) == CellKind::Null) return std::nullopt;
  return row.integer(source);
}

bool sameTie(const Value& a, const Value& b) {
  if (a.isText() && b.isText()) return dialect::sameName(a.as<std::string>(), b.as<std::string>());
  return a == b;
}

}  // namespace

RecordsetState::RecordsetState(std::shared_ptr<Connection> connection, std::shared_ptr<PreparedQuery> query,
                               std::string_view sql, const std::vector<dialect::Literal>& literals)
    : connection_(std::move(connection)),
      query_(std::move(query)),
      sql_(sql),
      literals_(literalsWithin(sql_, sql, literals)) {}

RecordsetState::~RecordsetState() {
  finish();
}

void RecordsetState::start() {
  finish();
  keys_.clear();
  passed_.clear();
  rows_.clear();
  known_ = visited_ = 0;
  current_ = cachedRow_ = -1;
  atEnd_ = true;
  currentDeleted_ = false;
  failure_ = nullptr;
  edit_.reset();
  untouched_ = query_->query().wholeTable();
  if (!untouched_) run();
}

void RecordsetState::look() {
  if (std::exchange(untouched_, false)) run();
}

void RecordsetState::run() {
  run_ = query_->take();
  connection_->addReader(*this);
  bindSlots(*run_.statement, query_->slots(), literals_);
  if (streamNext()) standOn(0);
}

void RecordsetState::prepareAhead(bool besideWrites) {
  run_ = query_->takeAhead(besideWrites);
  bindSlots(*run_.statement, query_->slots(), literals_);
}

void RecordsetState::sendAhead() {
  if (run_.guard) run_.guard->sendAhead();
  run_.statement->sendAhead();
}

void RecordsetState::startSent() {
  connection_->addReader(*this);
  if (const auto guard = std::move(run_.guard)) guard->step();
  if (streamNext()) standOn(0);
}

void RecordsetState::finish() {
  if (!streaming()) return;
  connection_->removeReader(*this);
  query_->giveBack(std::exchange(run_, {}));
}

// The next row of the result becomes known; false at its end, where the statement is given up.
bool RecordsetState::streamNext() {
  if (!streaming()) return false;
  bool more = false;
  try {
    leaveRow();
    more = step() && withinTop();
  } catch (const RuntimeError&) {
    failure_ = std::current_exception();
    finish();
    throw;
  }
  if (!more) {
    finish();
    return false;
  }
  ++known_;
  return true;
}

// The walk may go beyond the first rows: then the query runs once more, for all of them, and passes over
// those. Should others have changed rows meanwhile, none comes twice and none is left out.
bool RecordsetState::step() {
  bool more = run_.statement->step();
  if (!more && run_.firstRowsOnly && known_ == PreparedQuery::kFirstRows) {
    query_->giveBack(std::exchange(run_, query_->takeWhole()));
    bindSlots(*run_.statement, query_->slots(), literals_);
    passed_ = keys_;
    more = run_.statement->step();
  }
  while (more && wasPassed()) more = run_.statement->step();
  return more;
}

bool RecordsetState::wasPassed() {
  if (passed_.empty()) return false;
  const auto found = std::ranges::find(passed_, keyAt(*run_.statement, 0));
  if (found == passed_.end()) return false;
  passed_.erase(found);
  return true;
}

// What is needed later of the row that the statement stands on, before it moves on.
void RecordsetState::leaveRow() {
  takeKeys();
  if (known_ > 0 && query_->query().top() == known_) lastTieKeys_ = tieKeys();
}

// TOP n keeps the rows that tie with row n on the order keys.
bool RecordsetState::withinTop() const {
  const std::optional<int> top = query_->query().top();
  if (!top || known_ < *top) return true;
  return !lastTieKeys_.empty() && std::ranges::equal(lastTieKeys_, tieKeys(), sameTie);
}

std::vector<Value> RecordsetState::tieKeys() const {
  std::vector<Value> keys;
  keys.reserve(query_->query().tieKeys());
  const auto first = static_cast<int>(sources());
  for (int i = 0; i < static_cast<int>(query_->query().tieKeys()); ++i)
    keys.push_back(readCell(*run_.statement, first + i, dialect::ColumnType::Unknown));
  return keys;
}

std::vector<RecordsetState::RowKey> RecordsetState::keysOf(const EngineStatement& row) const {
  std::vector<RowKey> keys;
  keys.reserve(sources());
  for (int i = 0; i < static_cast<int>(sources()); ++i) keys.push_back(keyAt(row, i));
  return keys;
}

// The keys of the row that the statement stands on are taken when they are needed, or when it is about to
// move on: of many queries one row is all that is read.
void RecordsetState::takeKeys() {
  const auto known = static_cast<std::size_t>(known_) * sources();
  if (!streaming() || keys_.size() == known) return;
  if (known_ == 1) keys_.reserve(known);
  for (int i = 0; i < static_cast<int>(sources()); ++i) keys_.push_back(keyAt(*run_.statement, i));
}

std::vector<Value> RecordsetState::decodeStreamedRow() const {
  int place = query_->firstColumn();
  std::vector<Value> row;
  row.reserve(run_.projection->columns.size());
  for (const std::size_t column : run_.projection->columns)
    row.push_back(readCell(*run_.statement, place++, query_->typeOf(column)));
  return row;
}

// The first row of a first run has told which columns are asked for: the other rows are streamed with them.
// Both statements read the same state of the file; should the wider one order ties differently, the walk goes
// on as it began.
void RecordsetState::widenStream() {
  if (!streaming() || !keyed() || known_ != 1 || run_.projection->covers(query_->projection())) return;
  takeKeys();
  PreparedQuery::Run wider = run_.firstRowsOnly ? query_->take() : query_->takeWhole();
  try {
    bindSlots(*wider.statement, query_->slots(), literals_);
    if (wider.statement->step() && keysOf(*wider.statement) == keys_) std::swap(run_, wider);
  } catch (const RuntimeError&) {
    // The statement that goes on meets the same failure and reports it.
  }
  query_->giveBack(std::move(wider));
}

// Before the statement moves on: a row of a keyed query can be read again, any other is kept.
void RecordsetState::keepStreamedRow() {
  if (streaming() && known_ > 0 && !keyed()) rows_.push_back(decodeStreamedRow());
}

// Somebody else's write must not fail because a row of ours cannot be read: the move that reaches it tells.
void RecordsetState::letGo() {
  try {
    keepStreamedRow();
    while (streamNext())
      if (!keyed()) rows_.push_back(decodeStreamedRow());
  } catch (const RuntimeError&) {
    finish();
  }
}

void RecordsetState::collectAll() {
  look();
  if (streaming()) letGo();
  if (failure_) std::rethrow_exception(failure_);
}

void RecordsetState::standOn(long row) {
  current_ = row;
  atEnd_ = false;
  currentDeleted_ = false;
  visited_ = std::max(visited_, row + 1);
}

void RecordsetState::moveNext() {
  edit_.reset();
  if (atEnd()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  connection_->gathering().afterStatement();
  if (current_ + 1 < known_) return standOn(current_ + 1);
  widenStream();
  if (streaming()) keepStreamedRow();
  if (streamNext()) return standOn(current_ + 1);
  if (failure_) std::rethrow_exception(failure_);
  current_ = known_;
  currentDeleted_ = false;
  atEnd_ = true;
}

void RecordsetState::movePrevious() {
  edit_.reset();
  if (atBeginning()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  collectAll();
  // A row that this recordset has deleted is gone already: current_ is the one before it.
  if (!currentDeleted_) --current_;
  currentDeleted_ = false;
  if (current_ >= 0) standOn(current_);
}

void RecordsetState::moveFirst() {
  edit_.reset();
  collectAll();
  if (known_ == 0) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  standOn(0);
}

void RecordsetState::moveLast() {
  edit_.reset();
  collectAll();
  if (known_ == 0) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  standOn(known_ - 1);
}

void RecordsetState::raiseUnknownColumn(std::string_view name) const {
  throw connection_->withAdvice(dialect::unknownItem(name));
}

void RecordsetState::requireCurrentRow() const {
  if (currentDeleted_) throw RuntimeError(ErrorNumber::RecordDeleted);
  if (current_ < 0 || atEnd_) throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

Value RecordsetState::valueElsewhere(std::size_t column) {
  if (column >= columns().size()) throw dialect::unknownItem(std::to_string(column));
  if (edit_) {
    if (const Value* set = edit_->find(column)) return *set;
    if (edit_->isNewRow()) return {};
  }
  look();
  requireCurrentRow();
  if (keyed()) return keyedValue(column);
  return rows_[static_cast<std::size_t>(current_)][column];
}

Value RecordsetState::keyedValue(std::size_t column) {
  if (onStreamedRow()) {
    if (const int place = run_.projection->placeOf[column]; place >= 0) {
      if (run_.learns) query_->learn(column);
      return readCell(*run_.statement, query_->firstColumn() + place, query_->typeOf(column));
    }
    // What has come without being learned is asked for as well: a wider statement goes on delivering it.
    if (!run_.learns)
      for (const std::size_t delivered : run_.projection->columns) query_->learn(delivered);
  }
  const bool isNew = query_->projection().placeOf[column] < 0 && columns()[column].source;
  query_->learn(column);
  if (!cacheHolds(column)) readCurrentByKey(query_->rowByKey(isNew));
  return cache_[static_cast<std::size_t>(cacheProjection_->placeOf[column])];
}

// What was read before a write may have changed since.
bool RecordsetState::cacheHolds(std::size_t column) const {
  return cachedRow_ == current_ && cachedAtWrite_ == connection_->writes() &&
         cacheProjection_->placeOf[column] >= 0;
}

void RecordsetState::bindKeys(EngineStatement& statement) {
  takeKeys();
  auto parameter = static_cast<int>(query_->slots().size());
  const std::size_t first = static_cast<std::size_t>(current_) * sources();
  for (std::size_t i = 0; i < sources(); ++i) {
    const RowKey& key = keys_[first + i];
    ++parameter;
    key ? statement.bindInteger(parameter, *key) : statement.bindNull(parameter);
  }
}

void RecordsetState::readCurrentByKey(const PreparedQuery::RowByKey& byKey) {
  EngineStatement& statement = *byKey.statement;
  bindSlots(statement, query_->slots(), literals_);
  bindKeys(statement);
  const Projection& projection = *byKey.projection;
  cachedRow_ = -1;
  cache_.clear();
  const bool found = statement.step();
  for (std::size_t i = 0; found && i < projection.columns.size(); ++i)
    cache_.push_back(readCell(statement, static_cast<int>(i), columns()[projection.columns[i]].type));
  statement.reset();
  if (!found) throw RuntimeError(ErrorNumber::RecordDeleted);
  cacheProjection_ = byKey.projection;
  cachedRow_ = current_;
  cachedAtWrite_ = connection_->writes();
}

}  // namespace zelkor
