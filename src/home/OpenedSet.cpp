#include "home/OpenedSet.h"

#include "startup/Arguments.h"

namespace zelkor {

std::vector<std::string> argumentsFor(const StepCommand& command, const OpenedSet& opened) {
  const ExtraScreenRow* screen = command.screen.empty() ? nullptr : findExtraScreen(command.screen);
  const std::string arguments =
      composeArguments({.dataFile = opened.set.dataFile,
                        .user = opened.user,
                        .date = opened.date,
                        .runType = screen == nullptr ? command.runType : screen->runType,
                        .systemFile = opened.set.systemFile,
                        .account = opened.set.account});
  if (screen == nullptr) return {arguments};
  return {"--screen", std::string(command.screen), arguments};
}

RunGroup groupOf(const StepCommand& command) {
  if (!command.screen.empty()) return findExtraScreen(command.screen)->group;
  return findRunType(command.runType)->group;
}

std::vector<StepCommand> allCommands() {
  std::vector<StepCommand> all;
  for (const RunGroup group : runGroups()) {
    for (const RunTypeRow& row : runTypes())
      if (row.group == group) all.push_back({.runType = row.runType});
    for (const ExtraScreenRow& row : extraScreens())
      if (row.group == group) all.push_back({.runType = 0, .screen = row.name});
  }
  return all;
}

}  // namespace zelkor
