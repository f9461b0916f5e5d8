#pragma once

#include <cstddef>

#include "base/TextGrid.h"
#include "startup/RunContext.h"

namespace zelkor {

/// The columns of `cardPickerList`.
namespace card_column {
enum : std::size_t { CardNum, AssetNum, AssetName, Style, StartDate, Method, Operator, MethodID };
}

/// The cards to pick from, those in force on the operating date, each by its newest version, under one header
/// row: sCardNum, sAssetNum, sAssetName,
/// sStyle, dStartdate, name of the depreciation method, sOperator, the method's sID. Only the header when
/// something fails on the way; so it is once a version's number goes beyond 32767, for the versions in force
/// are read by their numbers of 16 bits first.
TextGrid cardPickerList(RunContext& run);

}  // namespace zelkor
