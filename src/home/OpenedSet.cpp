#include "home/OpenedSet.h"

#include "home/OwnCommands.h"
#include "startup/Arguments.h"

namespace zelkor {

std::string argumentString(std::int16_t runType, const OpenedSet& opened) {
  return composeArguments({.dataFile = opened.set.dataFile,
                           .user = opened.user,
                           .date = opened.date,
                           .runType = runType,
                           .systemFile = opened.set.systemFile,
                           .account = opened.set.account});
}

std::vector<std::string> argumentsFor(const StepCommand& command, const OpenedSet& opened) {
  if (command.screen.empty()) return {argumentString(command.runType, opened)};
  const std::string arguments = argumentString(findExtraScreen(command.screen)->runType, opened);
  return {"--screen", std::string(command.screen), arguments};
}

RunGroup groupOf(const StepCommand& command) {
  if (!command.own.empty()) return findOwnCommand(command.own)->group;
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
    for (const OwnCommandRow& row : ownCommands())
      if (row.group == group) all.push_back(StepCommand::ofOwn(row.name));
  }
  return all;
}

}  // namespace zelkor
