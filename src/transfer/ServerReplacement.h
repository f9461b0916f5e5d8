#pragma once

#include <string>
#include <vector>

#include "transfer/TransferSource.h"

namespace zelkor {

/// What is to be in a schema.
struct SchemaContent {
  std::string schema;
  TransferSource& source;
};

/// Puts tables in the place of all that are in these schemas of a server, or into new schemas, in one
/// transaction: nobody sees a part of it, and a process that is killed has changed nothing. Gives what could
/// not be kept as it came.
std::vector<TransferProblem> replaceOnServer(const std::string& conninfo,
                                             const std::vector<SchemaContent>& contents);

/// Whether the server has a schema of that name.
bool hasSchema(const std::string& conninfo, const std::string& schema);

}  // namespace zelkor
