#pragma once

#include <string>

#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/ServerFile.h"

namespace zelkor {

/// Lays the functions that translated statements call down in the session's schema, in place of older ones.
/// One transaction.
void layFunctions(PostgreSqlLink& server);

/// The digest of all that layFunctions defines: an account set's schema bears it.
const std::string& serverFunctionsDigest();

/// Error 3343 where the schema holds no account set, or one whose functions are not this program's.
void requireFunctions(PostgreSqlLink& server, const std::string& schema);

/// Brings the functions up to date that lie where the file points; error 3343 where no account set is.
void renewFunctions(const ServerFile& file);

}  // namespace zelkor
