#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "startup/ImportProblems.h"
#include "startup/ImportResult.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Saves each row of a register as a card. A row that cannot be saved is named in `problems` by line, column
/// and reason and does not stop the others. Raises RuntimeError, with nothing saved, when the header lacks a
/// needed column, or the engine fails at a row. The good rows become visible
/// together: an import that is cut short leaves nothing, and can be run again.
///
/// A row is refused for what the card's screen refuses; but a value of 0, which registers of old assets hold,
/// is taken. `newType` is 1 for assets from before the module's first period and 2 for additions of the open
/// month.
ImportResult importCards(RunContext& context, TableRows& rows, int newType, ImportProblems& problems);
/// The same of a CSV text in UTF-8; raises an error for any other, too.
ImportResult importCards(RunContext& context, std::string_view csv, int newType, std::ostream& problems);

}  // namespace zelkor
