#pragma once

#include <cstdint>
#include <string>

#include "startup/RunContext.h"

namespace zelkor {

/// The fields of an argument string.
struct RunArguments {
  std::string dataFile;
  std::string user;
  DateTime date;
  std::int16_t runType = 0;
  std::string systemFile;
  std::string account;
};

/// The argument string of these fields. Error 5 for a text that it cannot carry: one with a comma, or with
/// blanks at an end.
std::string composeArguments(const RunArguments& fields);

/// Fills the globals of the run from "data file,operator,date,run type,system file,account". Error 13 or 6
/// when the run type is no 16-bit number, error 13 when the date is none; the text of the error names the
/// field.
void ReadCommandArgs(RunContext& context, const std::string& arguments);

/// Fills the shared ClsOpArgs from the same string: a date that is none becomes the clock's, a run type that
/// is none stays 3. Error 9 when fields are missing.
void ParseArgs(RunContext& context, const std::string& arguments);

}  // namespace zelkor
