#pragma once

#include <string_view>
#include <vector>

#include "startup/ImportProblems.h"
#include "startup/ImportResult.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Stores the month's work of each row of a table (卡片编号, 本月工作量), for the month of the operating
/// date, as the screen of the workload does. A row that the screen would not take is named in `problems` by
/// line, column and reason and does not stop the others.
///
/// The rows are stored together: an import that is cut short leaves nothing. Given again, they are stored
/// again, in the place of what the month had. Raises RuntimeError, with nothing stored, when the header lacks
/// a column, or the engine fails.
ImportResult importWorkload(RunContext& context, TableRows& rows, ImportProblems& problems);

/// The captions that such a table has to have.
std::vector<std::string_view> workloadCaptions();

}  // namespace zelkor
