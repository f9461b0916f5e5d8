#pragma once

#include <vector>

#include "LargeAccountSet.h"

namespace zelkor {
class FlexGrid;
}

namespace zelkor::bench {

/// Megabytes that the process holds in memory.
double residentMegabytes();

/// Leafs through the grid from top to bottom, painting it each time; adds the seconds of each page and gives
/// the longest.
double worstPage(FlexGrid& grid, std::vector<double>& pages);

/// The workbench on the set; prints one line.
void benchHome(const LargeAccountSet& set);

/// The view on a ledger with a line for each card: when its first rows are painted, what a page costs; prints
/// one line.
void benchReportView(const LargeAccountSet& set);

}  // namespace zelkor::bench
