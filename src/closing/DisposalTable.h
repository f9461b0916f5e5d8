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

/// The rows of a table with the columns 卡片编号, 减少日期, 减少方式 (its sID), 清理收入, 清理费用 and
/// 清理原因. Error 3421 for one that is no such table.
std::vector<CsvTableRow> readDisposalRows(TableRows& rows);

/// The captions that such a table has to have.
std::vector<std::string_view> disposalCaptions();

/// The list that the screen would hold of these rows.
DisposalTable listDisposals(Database& data, std::span<const CsvTableRow> rows);

}  // namespace zelkor
