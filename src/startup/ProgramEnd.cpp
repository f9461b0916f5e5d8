#include "startup/ProgramEnd.h"

#include <exception>
#include <iostream>

#include "base/EndSignals.h"

namespace zelkor {
namespace {

constexpr int kFailedStatus = 1;

/// The report must come through whatever else fails by then.
void report(RunContext& context, const std::string& text) {
  if (!context.dialogs.tellsOnStandardError()) std::cerr << text << std::endl;
  try {
    context.engine.flush();
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
  }
  if (!context.dialogs.showsReports()) return;
  try {
    context.dialogs.setBeforeShowing({});
    context.dialogs.MsgBox(text, Buttons::Ok, Icon::Critical);
  } catch (...) {
    // nobody is there to see it: standard error has it
  }
}

std::optional<int> guarded(RunContext& context, const std::function<void()>& work) {
  try {
    work();
    return std::nullopt;
  } catch (const EndProgram& end) {
    return end.status;
  } catch (const RuntimeError& error) {
    report(context, runtimeReport(error));
  } catch (const std::ios_base::failure&) {
    if (const auto status = endSignalStatus()) return status;  // it has cut a write off
    report(context, "不能写出结果：输出已关闭");
  } catch (const std::exception& error) {
    report(context, std::string("内部错误：") + error.what());
  }
  return kFailedStatus;
}

}  // namespace

std::string runtimeReport(const RuntimeError& error) {
  return "实时错误 '" + std::to_string(error.number()) + "':\n" + error.what();
}

void writeOutBeforeShowing(RunContext& context) {
  context.dialogs.setBeforeShowing([&engine = context.engine] { engine.flush(); });
}

std::optional<int> runToEnd(RunContext& context, const std::function<void()>& work) {
  const auto status = guarded(context, work);
  const auto written = guarded(context, [&context] { context.engine.flush(); });
  return written && status.value_or(0) == 0 ? written : status;
}

}  // namespace zelkor
