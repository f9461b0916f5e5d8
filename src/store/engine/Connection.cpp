#include "store/engine/Connection.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/engine/Binding.h"
#include "store/engine/Database.h"
#include "store/engine/RecordsetState.h"

namespace zelkor {
namespace {

// A prepared statement that has been used is reset on every path, so that it holds no lock.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(EngineStatement& statement) : statement_(statement) {}
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;
  ~ResetAtEnd() { statement_.reset(); }

 private:
  EngineStatement& statement_;
};

bool isPlainName(std::string_view text) {
  return !text.empty() &&
         std::ranges::none_of(text, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
}

std::string allOf(std::string_view table) {
  return "select * from [" + std::string(table) + "]";
}

bool isUnknownName(const RuntimeError& error) {
  return error.is(ErrorNumber::CannotOpenTableOrQuery) || error.is(ErrorNumber::TooFewParameters) ||
         error.is(ErrorNumber::UndefinedFunction);
}

// What is known of the tables may be older than what others have done to them.
bool mayBeOutdated(const RuntimeError& error) {
  return isUnknownName(error) || error.is(ErrorNumber::TableAlreadyExists);
}

}  // namespace

Connection::Connection(std::unique_ptr<Engine> engine, std::string advice)
    : engine_(std::move(engine)),
      advice_(std::move(advice)),
      schema_(*engine_),
      statements_(*engine_, schema_),
      gathering_(*engine_) {}

Connection::~Connection() {
  try {
    flush();
  } catch (const RuntimeError&) {
    // Whoever needs to know has flushed before; a destructor cannot report.
  }
}

// Another process may have changed a table since its columns were read: then the names are read again, once.
template <typename Use>
auto Connection::withStatement(std::string_view sql, Use use) {
  try {
    return use(*statements_.find(sql, shape_));
  } catch (const RuntimeError& error) {
    if (!mayBeOutdated(error)) throw;
  }
  forgetTables();
  try {
    return use(*statements_.find(sql, shape_));
  } catch (const RuntimeError& error) {
    throw isUnknownName(error) ? withAdvice(error) : error;
  }
}

RuntimeError Connection::withAdvice(const RuntimeError& error) const {
  return {static_cast<ErrorNumber>(error.number()), error.what() + advice_};
}

void Connection::goOn() const {
  if (ended_) throw EndProgram{*ended_};
}

long Connection::execute(std::string_view sql) {
  goOn();
  return withStatement(sql, [&](CachedStatement& statement) { return run(statement, shape_); });
}

Recordset Connection::open(std::string_view sqlOrTable) {
  goOn();
  engine_->requireFile();
  gathering_.afterStatement();
  if (auto foreseen = foreseen_.take(sqlOrTable, writes_)) return *std::move(foreseen);
  return isPlainName(sqlOrTable) ? openTable(sqlOrTable) : openQuery(sqlOrTable);
}

Recordset Connection::openTable(std::string_view table) {
  if (schema_.table(table) == nullptr) throw dialect::unknownTable(table);
  return openQuery(allOf(table));
}

Recordset Connection::openQuery(std::string_view sql) {
  return withStatement(sql, [&](CachedStatement& statement) {
    if (!statement.query)
      throw RuntimeError(ErrorNumber::OperationNotUpdatable,
                         "操作查询不能作为记录集打开：" + std::string(sql));
    auto state = std::make_shared<RecordsetState>(shared_from_this(), statement.query, sql, shape_.literals);
    state->start();
    gathering_.afterStatement();
    return Recordset(std::move(state));
  });
}

long Connection::run(CachedStatement& statement, const dialect::Shape& shape) {
  using dialect::StatementKind;
  switch (statement.translation.kind) {
    case StatementKind::Query:
      throw RuntimeError(ErrorNumber::CannotExecuteSelect, "不能执行选择查询。");
    case StatementKind::Insert:
    case StatementKind::Update:
    case StatementKind::Delete:
      return runAction(statement, shape);
    default:
      return runTableChange(statement, shape);
  }
}

bool Connection::fastFormAllowed(CachedStatement& statement) {
  if (!statement.translation.guard || statement.translation.fastSql.empty()) return false;
  if (!statement.guard) statement.guard = engine_->prepare(*statement.translation.guard);
  const ResetAtEnd reset(*statement.guard);
  return !statement.guard->step();
}

long Connection::runAction(CachedStatement& statement, const dialect::Shape& shape) {
  // The guard holds only while nobody else can write.
  if (statement.translation.guard) gathering_.beforeWrite();
  const bool fast = fastFormAllowed(statement);
  auto& prepared = fast ? statement.fastAction : statement.action;
  const auto& sql = fast ? statement.translation.fastSql : statement.translation.sql;
  if (!prepared) prepared = engine_->prepare(sql.front());
  bindSlots(*prepared, statement.translation.slots, shape.literals);
  return write(*prepared);
}

long Connection::write(EngineStatement& statement) {
  goOn();
  letReadersGo();
  gathering_.beforeWrite();
  ++writes_;
  try {
    const ResetAtEnd reset(statement);
    while (statement.step()) {
    }
  } catch (const RuntimeError& reason) {
    gathering_.afterFailure(reason);
    throw;
  }
  const long touched = engine_->changes();
  gathering_.afterWrite();
  return touched;
}

std::optional<AheadStatement> Connection::ahead(std::string_view sql, bool besideWrites) {
  using dialect::StatementKind;
  if (isPlainName(sql)) return std::nullopt;
  const auto statement = statements_.find(sql, shape_);
  const dialect::Translation& translation = statement->translation;
  AheadStatement ahead;
  if (statement->query) {
    ahead.rows = std::make_shared<RecordsetState>(shared_from_this(), statement->query, sql, shape_.literals);
    ahead.rows->prepareAhead(besideWrites);
    return ahead;
  }
  const bool isAction = translation.kind == StatementKind::Insert ||
                        translation.kind == StatementKind::Update ||
                        translation.kind == StatementKind::Delete;
  if (!isAction) return std::nullopt;
  if (!statement->action) statement->action = engine_->prepare(translation.sql.front());
  ahead.action = engine_->prepare(translation.sql.front());
  bindSlots(*ahead.action, translation.slots, shape_.literals);
  return ahead;
}

std::shared_ptr<RecordsetState> Connection::openForAdding(std::string_view sql) {
  goOn();
  if (isPlainName(sql)) return schema_.table(sql) ? openForAdding(allOf(sql)) : nullptr;
  return withStatement(sql, [&](CachedStatement& statement) {
    if (!statement.query) return std::shared_ptr<RecordsetState>();
    auto state = std::make_shared<RecordsetState>(shared_from_this(), statement.query, sql, shape_.literals);
    state->startLater();
    return state;
  });
}

void Connection::sendQueries(std::span<const AheadStatement> queries) {
  goOn();
  gathering_.afterStatement();
  for (const AheadStatement& query : queries) query.rows->sendAhead();
}

// What `use` raises takes back what has been written: outside a transaction one is begun for that. Its begin
// goes along with the statements.
void Connection::together(std::span<const AheadStatement> statements, const std::function<void()>& use) {
  goOn();
  letReadersGo();
  gathering_.beforeWrite();
  ++writes_;
  const bool begins = use && !engine_->inTransaction();
  try {
    if (begins) engine_->begin();
    carryOut(statements);
    if (use) useBeforeKept(use);
    if (begins) engine_->commit();
  } catch (const RuntimeError& reason) {
    takeBack(begins);
    gathering_.afterFailure(reason);
    throw;
  } catch (...) {
    takeBack(begins);
    throw;
  }
  gathering_.afterWrite();
}

// Reading on in the rows must not commit what may have to be taken back.
void Connection::useBeforeKept(const std::function<void()>& use) {
  const KeptTogether held(shared_from_this());
  engine_->keepGroupForTakingBack(true);
  use();
  engine_->keepGroupForTakingBack(false);
}

void Connection::takeBack(bool begun) {
  try {
    engine_->keepGroupForTakingBack(false);
    begun ? engine_->rollback() : engine_->takeBackGroup();
  } catch (const RuntimeError&) {
    // The connection is gone, and all that was not committed with it.
  }
}

void Connection::carryOut(std::span<const AheadStatement> statements) {
  engine_->openGroup();
  for (const AheadStatement& one : statements) one.action ? one.action->sendAhead() : one.rows->sendAhead();
  engine_->closeGroup();
  engine_->takeAnswers();
  for (const AheadStatement& one : statements) {
    if (one.rows) one.rows->startSent();
    while (one.action && one.action->step()) {
    }
  }
}

// Several engine statements that must stand or fall as the one statement that they are.
long Connection::runTableChange(const CachedStatement& statement, const dialect::Shape& shape) {
  letReadersGo();
  engine_->sendsAhead() ? gathering_.beforeWrite() : gathering_.beforeTableChange();
  ++writes_;
  try {
    engine_->sendsAhead() ? sendParts(statement, shape) : stepParts(statement, shape);
  } catch (const RuntimeError& reason) {
    gathering_.afterFailure(reason);
    forgetTables();
    throw;
  }
  const bool counts = statement.translation.kind == dialect::StatementKind::SelectInto;
  const long touched = counts ? engine_->changes() : 0;
  forgetChanged(statement.translation);
  gathering_.afterWrite();
  return touched;
}

// What is under way together stands or falls together.
void Connection::sendParts(const CachedStatement& statement, const dialect::Shape& shape) {
  std::vector<std::unique_ptr<EngineStatement>> parts;
  for (const std::string& sql : statement.translation.sql) parts.push_back(engine_->prepare(sql));
  bindSlots(*parts.back(), statement.translation.slots, shape.literals);
  for (const auto& part : parts) part->sendAhead();
  for (const auto& part : parts)
    while (part->step()) {
    }
}

void Connection::stepParts(const CachedStatement& statement, const dialect::Shape& shape) {
  engine_->run("SAVEPOINT zk_statement");
  try {
    for (const std::string& sql : statement.translation.sql) {
      const auto prepared = engine_->prepare(sql);
      if (&sql == &statement.translation.sql.back())
        bindSlots(*prepared, statement.translation.slots, shape.literals);
      while (prepared->step()) {
      }
    }
  } catch (const RuntimeError&) {
    if (engine_->inTransaction()) engine_->run("ROLLBACK TO zk_statement; RELEASE zk_statement");
    throw;
  }
  engine_->run("RELEASE zk_statement");
}

// Nothing that is kept rests on a table that was not there, or that only its own drop has asked for.
void Connection::forgetChanged(const dialect::Translation& translation) {
  using dialect::StatementKind;
  const StatementKind kind = translation.kind;
  if (kind == StatementKind::SelectInto || kind == StatementKind::CreateTable) return;
  if (kind == StatementKind::DropTable && schema_.forgetUnlessUsed(translation.table)) return;
  forgetTables();
}

EngineStatement& Connection::prepared(const std::string& sql) {
  auto& statement = prepared_[sql];
  if (!statement) statement = engine_->prepare(sql);
  return *statement;
}

// Nobody's rows stay open while a person thinks, but for those that are about to be read.
void Connection::letIdleReadersGo() {
  const auto readers = readers_;
  for (RecordsetState* reader : readers)
    if (!reader->keepsStreaming()) reader->letGo();
}

void Connection::writeOut() {
  letIdleReadersGo();
  gathering_.writeOut();
}

void Connection::flush() {
  letIdleReadersGo();
  gathering_.flush();
}

void Connection::rollbackWorkspaceTransaction() {
  letReadersGo();
  ++writes_;
  gathering_.rollbackWorkspaceTransaction();
  forgetTables();
}

void Connection::letReadersGo() {
  while (!readers_.empty()) readers_.back()->letGo();
}

void Connection::forgetTables() {
  schema_.forget();
  statements_.forget();
  prepared_.clear();
}

}  // namespace zelkor
