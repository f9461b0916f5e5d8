#include "home/OwnCommands.h"

#include <algorithm>
#include <iterator>

namespace zelkor {
namespace {

constexpr OwnCommandRow kRows[] = {
    {own::kCheck, "检查账套", RunGroup::Account},
    {own::kBackup, "备份账套", RunGroup::Account},
    {own::kBackupTo, "备份到其他文件夹…", RunGroup::Account},
    {own::kReopen, "恢复到结账前…", RunGroup::Account},
    {own::kImportCards, "导入卡片…", RunGroup::Cards},
    {own::kImportSheets, "导入变动单…", RunGroup::Changes},
    {own::kPreview, "预览计提", RunGroup::Processing},
    {own::kPlan, "未来折旧", RunGroup::Processing},
};

}  // namespace

std::span<const OwnCommandRow> ownCommands() {
  return kRows;
}

const OwnCommandRow* findOwnCommand(std::string_view name) {
  const auto* found = std::ranges::find(kRows, name, &OwnCommandRow::name);
  return found == std::end(kRows) ? nullptr : found;
}

}  // namespace zelkor
