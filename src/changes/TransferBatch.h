#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "changes/CardVersion.h"
#include "changes/ChangeSheet.h"
#include "changes/SheetRow.h"
#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

// Transfers of several cards, each to one department, whose statements go out together. None of them may be
// of a card that another is of: what is read for one is then nothing that another writes, but for the
// numbers.
namespace zelkor {

/// Whether the row can be one of them.
bool canGoWithOthers(const SheetRow& row);

/// A transfer that the checks have let pass; its number is still to be given.
struct ReadyTransfer {
  ChangeSheet sheet;
  CardVersion card;
};

/// Reads for each row what its sheet would show; nothing for one that would be refused. Raises what the
/// engine raises.
std::vector<std::optional<ReadyTransfer>> readTransfers(RunContext& context, std::span<const SheetRow> rows);

/// Saves them in one transaction, numbered as one after the other is; `note` adds what goes with each. Raises
/// what the engine raises, nothing being saved then.
void saveTransfers(RunContext& context, std::span<ReadyTransfer> transfers,
                   const std::function<void(StatementGroup& group, std::size_t transfer)>& note);

}  // namespace zelkor
