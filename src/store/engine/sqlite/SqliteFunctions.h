#pragma once

#include <sqlite3.h>

namespace zelkor {

/// Gives the connection what translated statements call and its engine has not. A function reports a runtime
/// error as "ZK<number>:<description>".
void registerSqliteFunctions(sqlite3* connection);

}  // namespace zelkor
