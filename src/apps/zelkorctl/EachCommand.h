#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {

struct EachOptions {
  std::string place;  // a folder, or a text file that has one in each line; there "#" begins a comment
  std::string jobs;   // how many at a time; empty: as many as there are processors
  std::vector<std::string> words;  // of the call
};

/// Runs a call of this program over every account set below a folder or in a list, each once, several at a
/// time, each in a process of its own with no input. Prints a line for each as it ends, with what the call
/// has printed where that failed, and a summary. What the calls print on standard error goes to `problems`.
///
/// The status is 1 when one failed. Error 5 when there is no such call, 3024 when there is no such place.
int eachCommand(const EachOptions& options, std::ostream& output, std::ostream& problems);

/// The call `each` of the table of calls.
Call eachCall();

}  // namespace zelkor
