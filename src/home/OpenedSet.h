#pragma once

#include <string>
#include <vector>

#include "home/AccountSetList.h"
#include "home/BookReading.h"
#include "home/MonthState.h"
#include "startup/RunTypes.h"

namespace zelkor {

/// An account set that is worked with: by whom, and for which day.
struct OpenedSet {
  KnownAccountSet set;
  std::string user;
  DateTime date;

  BooksPlace place() const { return {set.dataFile, set.systemFile, set.account, date}; }
};

/// The argument string of a run type. Error 5 when it cannot carry the set, or the operator.
std::string argumentString(std::int16_t runType, const OpenedSet& opened);
/// What the module is started with for a command. Errors as argumentString.
std::vector<std::string> argumentsFor(const StepCommand& command, const OpenedSet& opened);

/// The menu in which it is.
RunGroup groupOf(const StepCommand& command);

/// All that can be started, menu by menu, as the menus call it.
std::vector<StepCommand> allCommands();

}  // namespace zelkor
