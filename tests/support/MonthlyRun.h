#pragma once

#include <string>
#include <vector>

#include "depreciation/RunMonthDepr.h"
#include "support/ScriptedDialogs.h"

namespace zelkor::test {

inline constexpr const char* kRunQuestion = "本操作将计提本月折旧,并花费一定时间,是否继续?";

inline void expectRunQuestion(ScriptedDialogs& dialogs, Answer answer) {
  dialogs.expectYesNo(kRunQuestion, answer, Icon::None, "固定资产");
}

/// The boxes of a run that goes through, with the times that its last one names.
inline void expectWholeRun(ScriptedDialogs& dialogs, Answer list = Answer::No,
                           const std::string& begin = "2020年06月01日 08时30分00秒",
                           const std::string& end = "2020年06月01日 08时30分00秒") {
  expectRunQuestion(dialogs, Answer::Yes);
  dialogs.expectYesNo("是否要查看折旧清单?", list, Icon::Information, "固定资产");
  dialogs.expectOk("计提折旧完成!\n开始时间:" + begin + "\n结束时间:" + end, Icon::Exclamation, "固定资产");
}

/// Runs the month, which goes through; the grids that it shows, by name.
inline std::vector<std::string> runMonth(RunContext& context, ScriptedDialogs& dialogs) {
  std::vector<std::string> shown;
  expectWholeRun(dialogs);
  RunMonthDepr(context, {[&] { shown.emplace_back("list"); }, [&] { shown.emplace_back("table"); }});
  return shown;
}

}  // namespace zelkor::test
