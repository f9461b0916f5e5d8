#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dialogs.h"
#include "startup/RunContext.h"

namespace zelkor {

/// What a screen is given before it is shown, beside the run context with its shared ClsOpArgs.
struct ScreenProperties {
  std::string BillType = {};     // frmAssetsAlteration: the kind of change
  std::string AssetTypeID = {};  // FrmAddCards
  std::int16_t frmType = 0;      // FrmAddCards: 1 enters a new card, 2 edits
  std::string CardID = {};       // FrmAddCards
  bool bView = false;            // FrmAddCards
  std::string ZkDataPath = {};   // screens that open the data file themselves
};

/// A screen or batch routine that a run type starts. A screen that is shown modeless returns at once; a modal
/// one returns when it is closed.
using Job = std::function<void(RunContext&, const ScreenProperties&)>;

/// The screens and routines that a program holds, by name. Start-up lies below all of them, so the programs
/// hand them in; what is not here cannot be run and is said so.
class RunTypeJobs {
 public:
  void add(std::string_view name, Job job) { jobs_.insert_or_assign(std::string(name), std::move(job)); }
  /// The job of that name, or nullptr.
  const Job* find(std::string_view name) const {
    const auto found = jobs_.find(name);
    return found == jobs_.end() ? nullptr : &found->second;
  }

 private:
  std::map<std::string, Job, std::less<>> jobs_;
};

/// Whose data path a screen is given as its ZkDataPath.
enum class PathFrom : std::uint8_t { Nowhere, Globals, OpArgs };

/// The menus in which a person finds the run types, in their order.
enum class RunGroup : std::uint8_t { Account, Archives, Cards, Changes, Processing, Reports };

/// All of them.
std::span<const RunGroup> runGroups();
/// What the menu is called: "账套".
std::string_view captionOf(RunGroup group);

/// One run type: what it is called, asks, starts and says.
struct RunTypeRow {
  std::int16_t runType = 0;
  std::string_view caption;  // "计提本月折旧"
  RunGroup group = RunGroup::Account;
  std::string_view job;
  ScreenProperties properties = {};
  PathFrom zkDataPath = PathFrom::Nowhere;
  void (*prepare)(RunContext&) = nullptr;  // before the questions; may end the program
  std::vector<MessageBox> questions = {};  // anything but Yes ends the program
  std::string_view afterwards = {};        // a routine that follows once the job has returned
  std::optional<MessageBox> closing = {};  // said at the end
};

/// All rows, menu by menu.
std::span<const RunTypeRow> runTypes();
/// The row of a run type, or nullptr for a number that names none.
const RunTypeRow* findRunType(std::int32_t runType);

/// Runs one row: prepares, asks, starts, says. A job that the program does not hold is reported and ends the
/// program with status 1.
void startRunType(RunContext& context, const RunTypeRow& row, const RunTypeJobs& jobs);

/// A screen that no run type starts, but a call of its own.
struct ExtraScreenRow {
  std::string_view name;  // in that call
  std::string_view caption;
  RunGroup group;
  std::string_view job;
  std::int16_t runType;  // of the argument string that it is given
};

std::span<const ExtraScreenRow> extraScreens();
/// The row of that name, or nullptr.
const ExtraScreenRow* findExtraScreen(std::string_view name);

/// True once the first-use wizard has set the start date. A missing row counts as not initialised.
bool IsAccountInitialised(Database& data);
inline bool IsAccountInitialised(RunContext& context) {
  return IsAccountInitialised(context.dbZKData);
}

}  // namespace zelkor
