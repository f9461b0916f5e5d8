#pragma once

#include "startup/ImportPreview.h"
#include "startup/RunContext.h"

namespace zelkor {

/// What importCards would make of a register: the same checks, nothing is stored. Numbers that it would draw
/// count as free. Errors as there.
ImportPreview previewCards(RunContext& context, TableRows& rows, int newType);

}  // namespace zelkor
