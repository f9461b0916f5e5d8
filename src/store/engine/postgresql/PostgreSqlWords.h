#pragma once

#include "store/dialect/printing/EngineWords.h"

namespace zelkor {

/// What the text of SQL is like for PostgreSQL. Unquoted names are folded to lower case there; ours are
/// quoted in lower case, so that every spelling of the dialect meets the same object.
const dialect::EngineWords& postgreSqlWords();

/// The type by which PostgreSQL keeps the values of such a column.
std::string_view postgreSqlType(dialect::ColumnType type);

}  // namespace zelkor
