#pragma once

#include "store/engine/Engine.h"

namespace zelkor {

/// The engine's own check of the file: its pages, its rows, and the indexes against the rows; then whether
/// its texts are UTF-8.
IntegrityCheck sqliteIntegrity(Engine& engine);

}  // namespace zelkor
