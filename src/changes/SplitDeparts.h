#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "archives/ArchiveTrees.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The department without others below it that a typed text names: its code, its name, or "code,name".
/// Nothing when there is none.
std::optional<ArchiveEntry> leafDepartment(Database& data, std::string_view text);

}  // namespace zelkor
