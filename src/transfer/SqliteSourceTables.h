#pragma once

#include "transfer/SourceTables.h"

namespace zelkor {

std::unique_ptr<SourceTables> sqliteSourceTables(Engine& engine);

}  // namespace zelkor
