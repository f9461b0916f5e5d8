#include "store/engine/postgresql/Results.h"

#include <libpq-fe.h>

namespace zelkor {

bool succeeded(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_COPY_IN;
}

std::string_view tagOf(const PGresult* result) {
  return PQcmdStatus(const_cast<PGresult*>(result));
}

bool writes(const PGresult* result) {
  const std::string_view tag = tagOf(result);
  return tag.starts_with("INSERT") || tag.starts_with("UPDATE") || tag.starts_with("DELETE");
}

PgResult lastResult(PGconn* connection) {
  PgResult last;
  while (PgResult next{PQgetResult(connection)}) {
    last = std::move(next);
    if (PQstatus(connection) == CONNECTION_BAD) break;
  }
  return last;
}

}  // namespace zelkor
