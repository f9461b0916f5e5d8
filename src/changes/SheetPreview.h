#pragma once

#include "startup/ImportPreview.h"
#include "startup/RunContext.h"

namespace zelkor {

/// What importSheets would make of a table: the same checks, nothing is stored. A row is looked at as if no
/// other row of the table had been saved. Errors as importSheets.
ImportPreview previewSheets(RunContext& context, TableRows& rows);

}  // namespace zelkor
