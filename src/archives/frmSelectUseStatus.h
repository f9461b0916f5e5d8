#pragma once

#include "archives/frmSelectEntry.h"

namespace zelkor {

/// What the dialog offers: the usage statuses, or the ways in which an asset leaves.
enum class StatusPick { Statuses, Reductions };

/// Picks a usage status or a way of reduction.
class frmSelectUseStatus final : public frmSelectEntry {
 public:
  frmSelectUseStatus(FormHost& host, StatusPick offered);
};

/// Lets a person pick; the entry's code is its sID. Nothing when the dialog was left without a choice.
std::optional<ArchiveEntry> pickUseStatus(FormHost& host, StatusPick offered);

}  // namespace zelkor
