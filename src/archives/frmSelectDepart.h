#pragma once

#include "archives/frmSelectEntry.h"

namespace zelkor {

/// Picks a department of the first two levels.
class frmSelectDepart final : public frmSelectEntry {
 public:
  explicit frmSelectDepart(FormHost& host);
};

/// Lets a person pick a department; nothing when the dialog was left without a choice.
std::optional<ArchiveEntry> pickDepartment(FormHost& host);

}  // namespace zelkor
