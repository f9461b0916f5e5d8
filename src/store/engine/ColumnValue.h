#pragma once

#include "base/Value.h"
#include "store/dialect/binding/Schema.h"
#include "store/engine/Engine.h"

namespace zelkor {

/// The value of a result cell whose column has the given type. A cell that holds something else (foreign
/// tools write what they like) keeps its own kind.
Value readCell(const EngineStatement& row, int column, dialect::ColumnType type);

/// Binds a value that a column of that type can hold in its physical form.
void bindValue(EngineStatement& statement, int parameter, const Value& value);

}  // namespace zelkor
