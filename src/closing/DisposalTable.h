#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/CsvTable.h"
#include "closing/Disposal.h"

namespace zelkor {

/// A list of disposals as a file holds it.
struct DisposalTable {
  std::vector<DisposedAsset> assets;
  std::vector<std::string> problems;  // each cell that the screen would not have let in, by line and column
};

/// The rows of a CSV text with the columns 卡片编号, 减少日期, 减少方式 (its sID), 清理收入, 清理费用 and
/// 清理原因. Error 3421 for a text that is no such table.
std::vector<CsvTableRow> readDisposalRows(const std::string& csv);

/// The list that the screen would hold of these rows.
DisposalTable listDisposals(Database& data, std::span<const CsvTableRow> rows);

}  // namespace zelkor
