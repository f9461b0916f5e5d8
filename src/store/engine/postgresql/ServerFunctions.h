#pragma once

#include <string>
#include <vector>

#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {

/// What a schema says of the books in it.
struct ServerBooks {
  int revision = 0;  // 0 where none was written
  /// The versions of the functions that were installed there, the present one first.
  std::vector<std::string> functions;

  /// Whether the functions are this program's, or have come after them.
  bool hasOwnFunctions() const;
};

/// What asks for the books in the schema, and what its result says. Error 3343 where the schema holds no
/// account set, 3051 where the session has no right to it.
ServerQuestion booksQuestion(const std::string& schema);
ServerBooks serverBooksIn(const pg_result* result, const std::string& schema);
/// Both at once.
ServerBooks readServerBooks(PostgreSqlLink& server, const std::string& schema);

/// Lays the functions that translated statements call down in the session's schema, in place of older ones,
/// whose versions it keeps as given by `before`.
void layFunctions(PostgreSqlLink& server, const ServerBooks& before = {});

/// Writes the revision of the books beside the schema.
void writeServerRevision(PostgreSqlLink& server, const std::string& schema, int revision);

}  // namespace zelkor
