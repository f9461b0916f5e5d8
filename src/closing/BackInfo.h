#pragma once

#include <functional>
#include <optional>
#include <string>

#include "startup/RunContext.h"

namespace zelkor {

/// The texts that are beside the percentage.
constexpr const char* kBackupText = "正在备份 固定资产 帐套月末结账前状态,请稍后";
constexpr const char* kProcessingText = "正在处理 系统信息";
/// What is shown before the first table is copied.
constexpr int kBackupBegun = 1;

/// Told how many hundredths of the backup are shown as done; whoever shows a window brings it up to date.
using ShowPercent = std::function<void(int)>;

/// Copies the account set into the backup tables of the open month within the same file. The backups of
/// earlier closings are dropped first, so that only the last one exists. Tells `show` after every table.
///
/// A failure ends the backup and is handed to the error log; what has been copied until then stays. Gives
/// what failed, nothing when the backup is whole.
std::optional<std::string> BackInfo(RunContext& run, const ShowPercent& show);

}  // namespace zelkor
