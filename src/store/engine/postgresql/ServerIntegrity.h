#pragma once

#include "store/engine/Engine.h"

namespace zelkor {

/// The server's own check of the schema's tables and indexes, where its extension for that is installed and
/// may be used.
IntegrityCheck serverIntegrity(Engine& engine);

}  // namespace zelkor
