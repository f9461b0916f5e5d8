#pragma once

#include <string>

#include "base/RuntimeError.h"

struct pg_conn;
struct pg_result;

namespace zelkor {

/// What a server says of a failure.
struct ServerFailure {
  std::string state;    // SQLSTATE; empty when the connection itself is gone
  std::string message;  // the primary message
  std::string detail;
  std::string table;   // the table whose index or column refuses the row
  std::string column;  // the column that must not be Null
};

ServerFailure failureOf(const pg_conn* connection, const pg_result* result);

/// What libpq says of the connection, without the end of its line.
std::string messageOf(const pg_conn* connection);

/// Error 3051 of one who has not been granted what he asks for.
RuntimeError noRight(const std::string& reason);

/// Raises the platform's error for it. `columnsOfKey` is what the message of a duplicate key says.
[[noreturn]] void raiseServerError(const ServerFailure& failure, const std::string& columnsOfKey);

}  // namespace zelkor
