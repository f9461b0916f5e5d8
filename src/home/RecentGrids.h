#pragma once

#include <vector>

#include "base/TextGrid.h"
#include "home/RecentWork.h"
#include "startup/RecentReports.h"

namespace zelkor {

// What was done last, a row for each.
TextGrid gridOf(const std::vector<RecentCard>& cards);
TextGrid gridOf(const std::vector<RecentVoucher>& vouchers);
TextGrid gridOf(const std::vector<RecentReport>& reports);

}  // namespace zelkor
