#pragma once

#include "store/engine/postgresql/PostgreSqlLink.h"

// What libpq's results say.
namespace zelkor {

bool succeeded(const pg_result* result);
/// What the server calls the statement that it has carried out: "INSERT 0 1".
std::string_view tagOf(const pg_result* result);
/// Whether the statement has changed rows.
bool writes(const pg_result* result);
/// The results of one statement end with none. A broken connection gives its failure and no end.
PgResult lastResult(pg_conn* connection);

}  // namespace zelkor
