#pragma once

#include "transfer/SourceTables.h"

namespace zelkor {

std::unique_ptr<SourceTables> serverSourceTables(Engine& engine);

}  // namespace zelkor
