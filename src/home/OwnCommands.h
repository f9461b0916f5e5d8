#pragma once

#include <span>
#include <string_view>

#include "startup/RunTypes.h"

namespace zelkor {

// What the workbench can do beside starting the module.
namespace own {
inline constexpr std::string_view kImportCards = "import-cards";
inline constexpr std::string_view kImportSheets = "import-sheets";
inline constexpr std::string_view kCheck = "check";
inline constexpr std::string_view kBackup = "backup";
inline constexpr std::string_view kBackupTo = "backup-to";
inline constexpr std::string_view kReopen = "reopen";
inline constexpr std::string_view kPreview = "preview";
inline constexpr std::string_view kPlan = "plan";
}  // namespace own

struct OwnCommandRow {
  std::string_view name;
  std::string_view caption;
  RunGroup group;
};

std::span<const OwnCommandRow> ownCommands();
/// The row of that name, or nullptr.
const OwnCommandRow* findOwnCommand(std::string_view name);

}  // namespace zelkor
