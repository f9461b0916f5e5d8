#pragma once

#include "store/dialect/printing/EngineWords.h"

namespace zelkor {

/// What the text of SQL is like for SQLite. A table's declared types are read back as the column types, so
/// that a file that was created elsewhere opens as well.
const dialect::EngineWords& sqliteWords();

}  // namespace zelkor
