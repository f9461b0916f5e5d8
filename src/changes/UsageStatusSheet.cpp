#include "base/Conversion.h"
#include "changes/SheetRules.h"
#include "store/engine/Statement.h"

// 使用状况调整: gives the asset another usage status.

namespace zelkor {
namespace {

ShownValue statusOf(Database& database, const std::string& statusID) {
  const Recordset status = database.OpenRecordset(sql("Select * From fa_status Where sID='", statusID, "'"));
  return {status.Eof() ? "" : status.TextOrEmpty("sName"), statusID};
}

void show(Database& database, const CardVersion& card, ChangeSheet& sheet) {
  sheet.before = statusOf(database, card.text("sStatusID"));
}

// The second check looks at the status before and not at the reason, which may stay empty.
std::optional<MessageBox> check(const ChangeSheet& sheet) {
  if (sheet.before.tag == sheet.after.tag) return refusal("变动后内容不应和变动前内容相同！");
  if (sheet.before.text.empty()) return refusal("变动原因不能为空！");
  return std::nullopt;
}

void write(const SheetSaving& saving) {
  const ChangeSheet& sheet = saving.sheet;
  saving.group.foresee({kLastOfRegister});
  const VersionKeys keys = keysBehind(saving.card, 10);
  addVersion(saving, keys, {{"sStatusID", sheet.after.tag}});
  addSheet(saving, ChangeKind::UsageStatus, keys.lOptID, sheet.before.tag, sheet.after.tag);
  addRegisterRow(saving);
}

}  // namespace

const SheetRules& usageStatusRules() {
  static constexpr SheetRules kRules{.find = newestVersion,
                                     .show = show,
                                     .pick = nullptr,
                                     .stored = statusOf,
                                     .check = check,
                                     .write = write,
                                     .afterwards = nullptr};
  return kRules;
}

}  // namespace zelkor
