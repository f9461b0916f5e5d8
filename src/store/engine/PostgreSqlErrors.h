#pragma once

#include <string>

struct pg_conn;
struct pg_result;

namespace zelkor {

/// What a server says of a failure.
struct ServerFailure {
  std::string state;    // SQLSTATE; empty when the connection itself is gone
  std::string message;  // the primary message
  std::string detail;
  std::string table;  // the table that a violated index belongs to
};

ServerFailure failureOf(const pg_conn* connection, const pg_result* result);

/// What libpq says of the connection, without the end of its line.
std::string messageOf(const pg_conn* connection);

/// Raises the platform's error for it. `columnsOfKey` is what the message of a duplicate key says.
[[noreturn]] void raiseServerError(const ServerFailure& failure, const std::string& columnsOfKey);

}  // namespace zelkor
