#include "store/engine/sqlite/SqliteStatement.h"

#include <sqlite3.h>

#include "store/engine/sqlite/SqliteErrors.h"

namespace zelkor {
namespace {

// No place would mean Null.
const char* placeOf(std::string_view value) {
  return value.data() == nullptr ? "" : value.data();
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* connection, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  handle_.reset(statement);
  if (code != SQLITE_OK) raiseSqliteError(connection, code);
  parameters_ = sqlite3_bind_parameter_count(statement);
}

void SqliteStatement::bindNull(int parameter) {
  if (parameter <= parameters_) sqlite3_bind_null(handle_.get(), parameter);
}

void SqliteStatement::bindInteger(int parameter, std::int64_t value) {
  if (parameter <= parameters_) sqlite3_bind_int64(handle_.get(), parameter, value);
}

void SqliteStatement::bindReal(int parameter, double value) {
  if (parameter <= parameters_) sqlite3_bind_double(handle_.get(), parameter, value);
}

void SqliteStatement::bindText(int parameter, std::string_view value) {
  if (parameter <= parameters_)
    sqlite3_bind_text(handle_.get(), parameter, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
}

void SqliteStatement::bindLastingText(int parameter, std::string_view value) {
  if (parameter <= parameters_)
    sqlite3_bind_text(handle_.get(), parameter, placeOf(value), static_cast<int>(value.size()),
                      SQLITE_STATIC);
}

void SqliteStatement::bindBytes(int parameter, std::string_view value) {
  if (parameter <= parameters_)
    sqlite3_bind_blob(handle_.get(), parameter, placeOf(value), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
}

bool SqliteStatement::step() {
  cellColumn_ = kNone;
  const int code = sqlite3_step(handle_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  raiseSqliteError(sqlite3_db_handle(handle_.get()), code);
}

void SqliteStatement::reset() {
  cellColumn_ = kNone;
  // The code repeats the failure of the last step, which has been raised already.
  (void)sqlite3_reset(handle_.get());
}

// The engine looks for the cell again at every question; one that has been found answers for itself.
sqlite3_value* SqliteStatement::cell(int column) const {
  if (column == cellColumn_) return cell_;
  cell_ = sqlite3_column_value(handle_.get(), column);
  cellColumn_ = column;
  return cell_;
}

CellKind SqliteStatement::kind(int column) const {
  switch (sqlite3_value_type(cell(column))) {
    case SQLITE_INTEGER:
      return CellKind::Integer;
    case SQLITE_FLOAT:
      return CellKind::Real;
    case SQLITE_NULL:
      return CellKind::Null;
    case SQLITE_BLOB:
      return CellKind::Bytes;
    default:
      return CellKind::Text;
  }
}

std::int64_t SqliteStatement::integer(int column) const {
  return sqlite3_value_int64(cell(column));
}

double SqliteStatement::real(int column) const {
  return sqlite3_value_double(cell(column));
}

std::string_view SqliteStatement::text(int column) const {
  sqlite3_value* const value = cell(column);
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::string_view SqliteStatement::bytesInPlace(int column) const {
  sqlite3_value* const value = cell(column);
  const auto* content = static_cast<const char*>(sqlite3_value_blob(value));
  return {content == nullptr ? "" : content, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace zelkor
