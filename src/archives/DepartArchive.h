#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/ClsBLLDepart.h"
#include "base/TextGrid.h"
#include "base/TreeRow.h"

namespace zelkor {

/// The departments as a tree without a root: key "D" and the code, text "(code)name", the code as tag. A
/// failure on the way ends the loading silently; what has been read is given.
std::vector<TreeRow> departTree(ClsBLLDepart& departs);

/// Nothing when there is no department with this code.
std::optional<DepartRecord> readDepart(ClsBLLDepart& departs, std::string_view code);

/// The staff under one header row: code, name, department.
TextGrid personGrid(Recordset persons);

}  // namespace zelkor
