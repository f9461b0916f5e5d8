#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Runs the body of a routine that has an error trap: a failure is shown under the routine's name and leaves
/// the routine, with what it has done so far. False then.
template <typename Body>
bool trapped(RunContext& run, std::string_view routine, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const RuntimeError& error) {
    run.dialogs.MsgBox(std::string(routine) + " 错误描述:" + error.what(), Buttons::Ok, Icon::Exclamation,
                       "固定资产");
    return false;
  }
}

}  // namespace zelkor
