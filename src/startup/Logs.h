#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "startup/RunContext.h"

namespace zelkor {

/// Where every business class hands its errors. Switched off: nothing is written and no file is made, so that
/// a failure inside a class stays silent.
void WriteErrorLog(std::int32_t level, std::string_view text, std::string_view routine);

/// A trace point; nothing receives its text.
void TraceLine(const std::string& text);

/// Records the memo with the operating date and the operator in Fa_log, where one memo text has at most one
/// row.
void WriteFaLog(RunContext& context, const std::string& memo);

}  // namespace zelkor
