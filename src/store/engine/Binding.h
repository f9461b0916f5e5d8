#pragma once

#include <span>
#include <vector>

#include "store/dialect/Translation.h"
#include "store/engine/Engine.h"

namespace zelkor {

/// Gives the statement's parameters 1, 2, ... the values of the slots' literals.
/// Literals stay where they are until the statement is reset. A date literal that is no date is error 3075.
void bindSlots(EngineStatement& statement, std::span<const dialect::ParameterSlot> slots,
               std::span<const dialect::Literal> literals);

}  // namespace zelkor
