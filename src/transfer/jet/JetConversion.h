#pragma once

#include <optional>
#include <string>

#include "store/dialect/binding/Schema.h"
#include "transfer/CarriedCell.h"

namespace zelkor::jet {

/// The value in the terms of another type, when it is the same value there: no digit is rounded away, nothing
/// is cut off. Null stays Null, except that a boolean cannot be Null. Texts may lie in `buffer`. nullopt when
/// it does not fit.
std::optional<CarriedCell> converted(const CarriedCell& value, dialect::ColumnType type, std::string& buffer);

/// Whether the value is a number other than 0, which the platform takes for True.
bool isNumberBeyondZero(const CarriedCell& value);

/// Whether every value of the one type is a value of the other as it is.
bool holdsAll(dialect::ColumnType type, dialect::ColumnType other);

/// The value as it is shown to people, not too long.
std::string shownText(const CarriedCell& value);

}  // namespace zelkor::jet
