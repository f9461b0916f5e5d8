#pragma once

#include <vector>

#include "store/engine/Engine.h"
#include "store/engine/StoredTables.h"

namespace zelkor {

/// All tables of the source as a target is to create them.
std::vector<TableDef> readTables(Engine& engine, StoredTables& source,
                                 std::vector<TransferProblem>& problems);

}  // namespace zelkor
