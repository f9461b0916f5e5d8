#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/TextGrid.h"
#include "changes/DepartSplit.h"

namespace zelkor {

/// The columns of `splitGrid`.
namespace split_column {
enum : std::size_t { Number, Depart, Scale, Subject, ItemClass, Project };
}

/// The departments between which an asset is split, below one header row.
TextGrid splitGrid(const std::vector<SplitRow>& rows);
/// The cells of one of its rows, which count from 1.
std::vector<std::string> splitCells(std::size_t number, const SplitRow& row);
/// "比例合计：" and the sum of the shares.
std::string splitTotalText(const std::vector<SplitRow>& rows);

/// A cell of an archive's entry, "code,name"; empty without a code.
std::string codeAndName(const std::string& code, const std::string& name);

}  // namespace zelkor
