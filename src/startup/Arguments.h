#pragma once

#include <string>

#include "startup/RunContext.h"

namespace zelkor {

/// Fills the globals of the run from "data file,operator,date,run type,system file,account". Error 13 or 6
/// when the run type is no 16-bit number, error 13 when the date is none; the text of the error names the
/// field.
void ReadCommandArgs(RunContext& context, const std::string& arguments);

/// Fills the shared ClsOpArgs from the same string: a date that is none becomes the clock's, a run type that
/// is none stays 3. Error 9 when fields are missing.
void ParseArgs(RunContext& context, const std::string& arguments);

}  // namespace zelkor
