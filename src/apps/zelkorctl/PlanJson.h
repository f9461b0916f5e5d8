#pragma once

#include <iosfwd>
#include <string>

#include "depreciation/DeprPlan.h"

namespace zelkor {

/// The plan as an object: its months, remarks, totals and the groups that `by` names (department, category,
/// subject, card; empty: the first three), amounts as numbers with up to four decimals.
void writePlanJson(const DeprPlan& plan, const std::string& by, std::ostream& out);

}  // namespace zelkor
