#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "home/MonthFacts.h"

// Where the month stands: its steps, what is next, and what opens each.
namespace zelkor {

enum class StepKind : std::uint8_t {
  Initialisation,
  Archives,
  Cards,
  Changes,
  Workload,
  Depreciation,
  Vouchers,
  Disposals,
  Check,
  Backup,
  Closing,
};

/// What the step is called: "计提折旧".
std::string_view captionOf(StepKind kind);
/// The same for scripts: "depreciation".
std::string_view nameOf(StepKind kind);

enum class StepState : std::uint8_t {
  Done,
  Open,       // has to be done
  Attention,  // done, or need not be, but something should be looked at
  Idle,       // nothing to do this month
  Waiting,    // for another step
};

/// "已完成"
std::string_view captionOf(StepState state);
std::string_view nameOf(StepState state);

/// What the module is started for: a run type, or a screen that none starts; or what the workbench does
/// itself.
struct StepCommand {
  std::int16_t runType = 0;
  std::string_view screen = {};
  std::string_view own = {};  // of ownCommands

  static StepCommand ofOwn(std::string_view name) { return {0, {}, name}; }
  bool isRun(std::int16_t type) const { return runType == type && screen.empty() && own.empty(); }

  bool operator==(const StepCommand&) const = default;
};

/// What the menu calls it.
std::string_view captionOf(const StepCommand& command);

struct MonthStep {
  StepKind kind{};
  StepState state{};
  std::string counts = {};                 // "在用 120 张，本月录入 5 张"
  std::string note = {};                   // what should be looked at, or why it waits
  std::optional<DateTime> last = {};       // when something of it was last done
  std::vector<StepCommand> commands = {};  // the first is the one that it needs now
};

enum class PeriodState : std::uint8_t { Open, Closed, Ahead };

struct MonthState {
  PeriodState period = PeriodState::Open;
  std::vector<MonthStep> steps;
  std::optional<std::size_t> next;  // the first open step
  std::string headline;             // one sentence: where the month stands and what is next
  std::string work;                 // the counts of what is worked on, by which a later state is told apart
};

/// What the facts come to.
MonthState monthState(const MonthFacts& facts);

}  // namespace zelkor
