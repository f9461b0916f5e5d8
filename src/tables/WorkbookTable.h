#pragma once

#include <string_view>
#include <vector>

#include "tables/TableFile.h"

namespace zelkor {

/// The table of an xlsx workbook; see readTableFile.
TableFile readWorkbookTable(std::string_view content, const std::vector<std::string_view>& needed);

}  // namespace zelkor
