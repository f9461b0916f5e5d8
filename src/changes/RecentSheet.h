#pragma once

#include <optional>

#include "changes/ChangeKind.h"
#include "changes/ChangeSheet.h"
#include "changes/SheetRules.h"

namespace zelkor {

/// The most recent stored sheet of the kind. The sheet of 部门转移 can be one of the change of the
/// depreciation method, which bears the same type. Nothing without a sheet.
std::optional<ChangeSheet> mostRecentSheet(Database& database, ChangeKind kind, DateTime operatingDate);

/// The fields of every panel.
void showCard(const CardVersion& card, ChangeSheet& sheet);

}  // namespace zelkor
