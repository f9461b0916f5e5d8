#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "startup/ClsOpArgs.h"
#include "startup/PickedSubject.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

/// What a process knows of its one job: the globals of the run, filled at start-up and passed to whoever
/// works in it, with the clock, the dialogs and the engine that the run uses.
struct RunContext {
  RunContext(DbEngine& theEngine, Dialogs& theDialogs, const Clock& theClock)
      : engine(theEngine), dialogs(theDialogs), clock(theClock) {}

  DbEngine& engine;
  Dialogs& dialogs;
  const Clock& clock;

  std::string gstrZtFile;     // data file
  std::string gstrZkSysFile;  // system file
  std::string gstrAccountId;
  std::int16_t giRunType = 0;
  std::string gstrUser;
  DateTime gdOpDate;
  Database dbZKData;
  Database dbZKSystem;
  std::array<std::string, 4> gstrDeprStates;  // captions at 1 to 3
  ClsOpArgs gOpArgs;
  PickedSubject pickedSubject;  // lives on after the picker, until the next pick

  std::string programFolder;  // folder of the running program, without a separator at its end

  /// Month of the operating date, 1 to 12: the open period.
  int period() const { return gdOpDate.month(); }
};

}  // namespace zelkor
