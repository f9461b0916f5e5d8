#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Runs the outermost work of the program or of one event, and is the one place where its end is caught.
///
/// Returns nothing when the work returned and the program goes on; otherwise the exit status: that of the
/// end-of-program statement, or 1 after the runtime's report (a box and standard error) of an error that
/// nobody handled. What the engine has gathered is written out on every path.
std::optional<int> runToEnd(RunContext& context, const std::function<void()>& work);

/// The text of the runtime's report.
std::string runtimeReport(const RuntimeError& error);

/// Sees to it that nothing waits in memory while a person looks at a box or a table.
void writeOutBeforeShowing(RunContext& context);

}  // namespace zelkor
