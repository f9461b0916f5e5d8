#pragma once

#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"
#include "store/engine/Engine.h"
#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {

/// Makes a session's schema, which must be new, for books of today: the functions that translated statements
/// call, and the revision.
void createSchema(PostgreSqlLink& server, const std::string& schema);

bool hasSchema(PostgreSqlLink& server, const std::string& schema);

/// Makes a schema that is there the session's, and books of today without tables. The rights that were
/// granted to it stay.
void clearSchema(PostgreSqlLink& server, const std::string& schema);

/// Creates the tables in the session's schema and carries their rows over from an SQLite file, in its order.
void loadTables(PostgreSqlLink& server, Engine& source, const std::vector<TableDef>& tables);

}  // namespace zelkor
