#pragma once

#include <string>
#include <vector>

#include "archives/ClsBLLAssentTypes.h"
#include "base/TreeRow.h"

namespace zelkor {

/// The archive as a selection dialog shows it: names as texts, codes (sNum) as tags, keys "t" and the sID. An
/// entry without a parent hangs below the row with the code "&"; it is a head where the archive has no such
/// row. Empty when the archive cannot be read.
std::vector<TreeRow> archiveTree(ClsBLLAssentTypes& types, ArchiveKind kind);

}  // namespace zelkor
